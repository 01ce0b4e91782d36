#include "form/upgrade_page.h"

#include <string>

namespace tarvo {

UpgradePage::UpgradePage() {
  const std::string names[] = {"login", "char", "map"};
  for (ComponentKind kind : kComponents) {
    CommandButton& browse = cmd_nBrowse[kind];
    browse.SetCaption("Browse...");
    browse.SetToolTip("Choose the new " + names[IndexOf(kind)] + " server");
  }
  optMode[0].SetToolTip("Upgrade only when \"Upgrade Now!\" is pressed");
  optMode[1].SetToolTip("Upgrade when the map server crashes and a new executable is there");
  optMode[2].SetToolTip("Upgrade when any server crashes and a new executable is there");
  chk_Opts[0].SetChecked(true);
  chk_Opts[0].SetToolTip("Keep a dated copy of the old executables in the folder LBackup");
  chk_Opts[1].SetToolTip("Upgrade only when all three executables are new");
  chk_Opts[2].SetToolTip("Select \"Manual\" as soon as an upgrade is done");
  UpdateNow.SetCaption("Upgrade Now!");
  UpdateNow.SetToolTip("Replace the three executables now; servers that run are restarted");
}

}  // namespace tarvo
