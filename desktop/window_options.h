#pragma once

#include <cstdint>

#include "core/component.h"
#include "core/process_control.h"

namespace tarvo {

/// The operator's options on the servers' own windows.
class WindowOptions {
 public:
  WindowOptions(const ComponentTable& components, ProcessControl& processes)
      : components_(components), processes_(processes) {}

  /// A press on a "Show ..." option: hides the component's window at the first press, shows it at
  /// the second, and so on. The counter goes on while nothing runs and across restarts.
  void opt_ShowWin_Click(ComponentKind kind);

  /// That counter: 1 after a press that hides, 0 after one that shows.
  PerComponent<std::int16_t> ShowToggle{};

 private:
  const ComponentTable& components_;
  ProcessControl& processes_;
};

}  // namespace tarvo
