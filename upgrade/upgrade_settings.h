#pragma once

#include <span>
#include <string>

#include "core/server_root.h"
#include "core/settings_store.h"
#include "platform/file_dialog.h"
#include "platform/message_boxes.h"
#include "support/component_kind.h"
#include "toolkit/controls.h"

namespace tarvo {

/// The controls that show and edit the upgrade's settings.
struct UpgradeSettingsControls {
  PerComponent<PathBox>& newFiles;
  std::span<Label, kComponentCount> targets;
  Label& lastUpgrade;
  OptionGroup& trigger;
  const PerComponent<DropDownList>& executables;
};

/// What the upgrade remembers between its runs, all of it string values of the root's key, and the
/// page's controls that show and choose it.
///
/// A path that the operator has chosen in the dialog or dropped onto its box is stored at once; one
/// that he types is used and not stored. Refused writes go unnoticed.
class UpgradeSettings {
 public:
  UpgradeSettings(const UpgradeSettingsControls& controls, SettingsStore& store,
                  const ServerRoot& root, FileDialog& dialog, MessageBoxes& messageBoxes)
      : controls_(controls),
        store_(store),
        appFolder_(root.AppFolder()),
        dialog_(dialog),
        messageBoxes_(messageBoxes) {}

  /// Fills the page, once at start-up, after the executables are chosen. Writes nothing. An
  /// `UpdateMode` that is no 32-bit number is a fault (13, 6) whose source is the value's name; a
  /// number that is no option's selects none.
  void LoadUpgradeSettings();
  /// Writes what no click has stored: the trigger that the page shows.
  void Save(SettingsStore& store) const { store.WriteChoice("UpdateMode", controls_.trigger); }

  /// Asks for the new executable of a component; cancelling changes nothing.
  void cmd_nBrowse_Click(ComponentKind kind);
  /// The operator has dropped this file onto the box of a component: an executable, by the ending
  /// of its name in any letter case, is chosen. Anything else, a shortcut to an executable as well,
  /// is refused in a message box and changes nothing.
  void nPath_Drop(ComponentKind kind, const std::string& path);
  void optMode_Click(std::size_t index);

  /// Full path of the executable that will be replaced; it follows the component's chooser.
  std::string TargetPath(ComponentKind kind) const;
  void ShowTarget(ComponentKind kind);

  /// The date text of the executable that was copied last; "" when there was none.
  std::string StoredDate(ComponentKind kind);
  void StoreDate(ComponentKind kind, const std::string& text);
  void StoreLastUpgrade(const std::string& text);
  /// Shows the moment of the last upgrade, "n/a" when there was none.
  void ShowLastUpgrade();

 private:
  void LoadMode();
  void ChooseNew(ComponentKind kind, const std::string& path);

  UpgradeSettingsControls controls_;
  SettingsStore& store_;
  const std::string appFolder_;
  FileDialog& dialog_;
  MessageBoxes& messageBoxes_;
};

}  // namespace tarvo
