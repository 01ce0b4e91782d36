#pragma once

#include <array>

#include "support/per_component.h"
#include "toolkit/controls.h"
#include "toolkit/path_box.h"

namespace tarvo {

/// Fourth page: the newly built executables, the ones that they replace, and when it happens.
struct UpgradePage {
  UpgradePage();

  PerComponent<PathBox> nPath;              ///< "FROM Components": the new executables.
  PerComponent<CommandButton> cmd_nBrowse;  ///< Picks one of them in a file dialog.
  /// 0 to 2: "TO Components", the executables that will be replaced. 3: after "Last Upgrade:".
  std::array<Label, 4> oPath;
  OptionGroup optMode;  ///< "Upgrade Trigger:" 0 "Manual", 1 "Map crash", 2 "Any crash".
  /// 0 "Make Backup", checked at the start. 1 "Only full upgrades". 2 "Set to "Manual" after
  /// Upgrade".
  std::array<CheckBox, 3> chk_Opts;
  CommandButton UpdateNow;  ///< "Upgrade Now!"
};

}  // namespace tarvo
