#pragma once

#include <cstdint>
#include <string>

#include "platform/foreign_windows.h"
#include "platform/processes.h"
#include "support/component_kind.h"
#include "toolkit/controls.h"

namespace tarvo {

/// Where a component listens, as the servers' configuration files say it: the host may have blanks
/// around it, the port may be any number.
struct ComponentEndpoint {
  std::string host = "127.0.0.1";
  std::int32_t port = 0;
};

/// All six values: hosts and ports of the three.
using ServerEndpoints = PerComponent<ComponentEndpoint>;

/// What the watches know of a component.
enum class AlarmState : std::int16_t { Healthy = 0, Trouble = 1, NotWatched = 2 };

/// The state of the light of a component in that alarm state.
constexpr LightState LightStateOf(AlarmState state) {
  switch (state) {
    case AlarmState::Healthy:
      return LightState::Healthy;
    case AlarmState::Trouble:
      return LightState::Trouble;
    case AlarmState::NotWatched:
      break;
  }
  return LightState::NotWatched;
}

/// One of the three server programs: what the launcher knows about it besides the form's controls.
struct Component {
  std::string storedExecutable;  ///< The settings' raw text; the chooser may hold another.
  ComponentEndpoint endpoint;

  tarvo::ProcessId ProcessId = 0;  ///< Remembered at start; 0 when not known to run.
  WindowHandle RunningHandle = 0;  ///< Its window at the last crash check; 0 when not running.
  tarvo::AlarmState AlarmState = tarvo::AlarmState::NotWatched;
  std::int64_t FreezeStart =
      0;                     ///< Tick count in whole seconds at which a freeze was seen; 0: none.
  std::string probeFailure;  ///< Why its last probe failed; "" when it succeeded, or none ran.
};

using ComponentTable = PerComponent<Component>;

}  // namespace tarvo
