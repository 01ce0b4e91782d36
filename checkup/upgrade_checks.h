#pragma once

#include <string>

#include "checkup/finding.h"
#include "platform/file_inspection.h"
#include "support/component_kind.h"

namespace tarvo {

/// Where a component's new executable comes from, and what it replaces.
struct UpgradeFacts {
  std::string newFile;  ///< "" when none is chosen.
  FileLook atNew;
  FileLook atTarget;
};

/// Without any new executable chosen there is nothing to find.
Findings CheckUpgrade(const PerComponent<UpgradeFacts>& facts);

}  // namespace tarvo
