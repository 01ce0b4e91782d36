#pragma once

#include "platform/self_restart.h"

namespace tarvo {

/// Handles every fault of the program from now on as `SelfRestart` says: an unhandled exception, a
/// stack overflow, an abort, a call of a pure virtual function, an uncaught C++ exception.
/// `version` must stay valid. Call it once, on the main thread, before all else that can fail.
void WatchForFaults(const char* version);

/// The order that `WatchForFaults` carries out, in room that was set aside at the start. What a
/// fault has to do needs no memory of the program's own heap; the system's calls find a reserve
/// that is let go first. The successor is started before the event log is written, which is the
/// likeliest to hang; the process then ends at once, with the fault's code. A start that fails is
/// tried again each second for ten minutes.
class WindowsSelfRestart : public SelfRestart {
 public:
  std::string Arguments() override;
  void Keep(const RestartOrder& order) override;
  void Die(OwnFault fault) override;
};

}  // namespace tarvo
