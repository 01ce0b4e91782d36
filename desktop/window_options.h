#pragma once

#include <cstdint>

#include "core/component.h"
#include "core/process_control.h"
#include "core/server_root.h"
#include "form/form.h"
#include "platform/registry.h"

namespace tarvo {

/// The operator's options on the launcher's start with Windows and on the servers' own windows.
class WindowOptions {
 public:
  WindowOptions(Form& form, const ComponentTable& components, ProcessControl& processes,
                Registry& registry, const ServerRoot& root)
      : form_(form),
        components_(components),
        processes_(processes),
        registry_(registry),
        root_(root) {}

  /// The operator's click on "Start with Windows": writes or deletes the entry under the machine's
  /// Run key, named after the server, holding the unquoted path of the launcher. It needs
  /// administrator rights; without them it silently has no effect.
  void Check2_Click();

  /// A press on a "Show ..." option: hides the component's window at the first press, shows it at
  /// the second, and so on. The counter goes on while nothing runs and over restarts.
  void opt_ShowWin_Click(ComponentKind kind);

  /// That counter: 1 after a press that hides, 0 after one that shows.
  PerComponent<std::int16_t> ShowToggle{};

 private:
  Form& form_;
  const ComponentTable& components_;
  ProcessControl& processes_;
  Registry& registry_;
  const ServerRoot& root_;
};

}  // namespace tarvo
