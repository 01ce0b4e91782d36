#pragma once

#include "platform/self_restart.h"

namespace tarvo {

/// Watches over the whole program from now on: an exception that nobody handles, a stack that runs
/// over, an abort, a call of a pure virtual function or a C++ exception that nobody catches is a
/// fault of its own, and goes the way that `SelfRestart` tells. `version` stays where it is. Once,
/// on the main thread, before everything else that can fail.
void WatchForFaults(const char* version);

/// The order that `WatchForFaults` carries out, in room that was set aside at the start. What a
/// fault has to do needs no memory of the program's own heap; the system's calls find a reserve
/// that is let go first. The successor is started before the event log is written, which is the
/// likeliest to hang; the process then ends at once, with the fault's code.
class WindowsSelfRestart : public SelfRestart {
 public:
  std::string Arguments() override;
  void Keep(const RestartOrder& order) override;
  void Die(OwnFault fault) override;
};

}  // namespace tarvo
