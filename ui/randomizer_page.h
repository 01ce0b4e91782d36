#pragma once

#include <array>

#include "ui/controls.h"

namespace tarvo {

/// The randomizer's settings that live in the launcher's own list of values.
struct RandomizerPage {
  OptionGroup opt_Rnd;            ///< 0 "Map Start", 1 "Manual", 2 "Program".
  std::array<TextBox, 2> txtMxD;  ///< 0: limit an hour. 1: limit a day.
};

}  // namespace tarvo
