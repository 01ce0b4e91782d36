#include "desktop/start_up_entry.h"

namespace tarvo {

StartUpEntry::StartUpEntry(CheckBox& box, const Label& serverName, Registry& registry,
                           SettingsStore& store, const ServerRoot& root)
    : box_(box),
      serverName_(serverName),
      runKey_(registry, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run"),
      store_(store),
      launcher_(root.WithSeparator() + root.ExecutableName() + ".exe") {}

void StartUpEntry::Check2_Click() {
  const std::string& name = serverName_.Caption();
  if (box_.Checked()) {
    runKey_.Write(name, launcher_);
  } else {
    runKey_.Erase(name);
  }
}

}  // namespace tarvo
