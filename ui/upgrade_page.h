#pragma once

#include "ui/controls.h"

namespace tarvo {

/// The upgrade's setting that the crash watch asks for.
struct UpgradePage {
  OptionGroup optMode;  ///< 0 "Manual", 1 "Map crash", 2 "Any crash".
};

}  // namespace tarvo
