#pragma once

#include <string>

#include "core/server_root.h"
#include "core/settings_store.h"
#include "toolkit/controls.h"

namespace tarvo {

/// The launcher's start with Windows.
class StartUpEntry {
 public:
  /// The registry is the machine's, the store holds the root's settings.
  StartUpEntry(CheckBox& box, const Label& serverName, Registry& registry, SettingsStore& store,
               const ServerRoot& root);

  /// Shows what was saved; the entry itself is not looked at.
  void Load() { store_.ReadFlag(kName, box_); }
  void Save(SettingsStore& store) const { store.WriteFlag(kName, box_); }

  /// The operator's click on "Start with Windows": writes or deletes the entry under the machine's
  /// Run key, named after the server, holding the unquoted path of the launcher. It needs
  /// administrator rights; without them it silently has no effect.
  void Check2_Click();

 private:
  static constexpr char kName[] = "RunAtStartup";

  CheckBox& box_;
  const Label& serverName_;
  SettingsStore runKey_;
  SettingsStore& store_;
  const std::string launcher_;  ///< Full path.
};

}  // namespace tarvo
