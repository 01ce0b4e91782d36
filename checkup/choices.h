#pragma once

#include <string>
#include <vector>

#include "core/settings_store.h"
#include "support/component_kind.h"

namespace tarvo {

/// What is chosen for the servers: what the window shows, or what is stored while no window is
/// asked.
struct Choices {
  struct OfComponent {
    std::string executable;  ///< Bare file name; "" when none is chosen.
    bool autokill = false;
    std::string autokillTime;
    std::string newFile;  ///< Where an upgrade takes the new executable from; "" for nowhere.
  };

  PerComponent<OfComponent> of;
  bool writesLogFile = false;
};

/// What a launcher would show that started now in a root with these executables.
Choices StoredChoices(SettingsStore& store, const std::vector<std::string>& executables);

}  // namespace tarvo
