#pragma once

#include <windows.h>

#include "platform/launcher_call.h"

namespace tarvo {

/// What tells the launcher's messages (WM_COPYDATA) from those of other programs.
inline constexpr ULONG_PTR kCallMark = 0x54764331;

/// The line is a named pipe of one instance, which only the caller's own user and the machine's
/// administrators may write to.
class WindowsLauncherCall final : public LauncherCall {
 public:
  CallResult Call(const std::string& instanceName, const std::string& record,
                  std::uint32_t longestWait) override;
};

/// Whoever laid the pipe can neither act in this program's name nor keep it waiting.
class WindowsAnswerLines final : public AnswerLines {
 public:
  std::unique_ptr<AnswerLine> Open(const std::string& address) override;
};

}  // namespace tarvo
