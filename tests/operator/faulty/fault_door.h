#pragma once

namespace tarvo {

/// The name of the registered message that the faulty build of the launcher listens to; its first
/// parameter is the index of the fault.
inline constexpr char kFaultMessage[] = "TarvoLauncherFault";

/// An access violation; no memory from now on; an abort; an exception that may not pass; an access
/// violation while the event log does not answer.
/// Not a stack that runs over: Wine keeps its main thread no room to
/// tell of it.
inline constexpr const char* kFaults[] = {"access", "memory", "abort", "throw", "unheard"};

}  // namespace tarvo
