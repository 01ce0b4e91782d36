#pragma once

#include <windows.h>

#include <string>

#include "platform/foreign_windows.h"
#include "platform/windows/handle_windows.h"

namespace tarvo::test {

/// A port of the loopback address at which nobody listens.
unsigned short FreePort();

/// A sample server of one role that runs in the current folder, started by `LaunchHidden` from a
/// copy of its executable there. Ended when it goes out of scope, whatever it was told before.
class RunningServer {
 public:
  /// `behaviour`: the lines of its behaviour file. Returns when its window is there and has
  /// answered, or 5 s later each.
  explicit RunningServer(const std::string& role, const std::string& behaviour = "");
  ~RunningServer();
  RunningServer(const RunningServer&) = delete;
  RunningServer& operator=(const RunningServer&) = delete;

  ProcessId Id() const { return id_; }
  unsigned short Port() const { return port_; }
  /// 0 when it has none.
  WindowHandle Window() const;
  /// Sends a message of server_commands.h; its answer.
  LRESULT Tell(UINT message) const;
  bool Runs() const;
  /// Its exit code; STILL_ACTIVE (259) while it runs.
  DWORD ExitCode() const;
  HANDLE Process() const { return process_.Get(); }

 private:
  unsigned short port_;
  ProcessId id_ = 0;
  KernelHandle process_;
};

}  // namespace tarvo::test
