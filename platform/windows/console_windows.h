#pragma once

#include <windows.h>

#include <array>

#include "platform/console.h"
#include "platform/windows/handle_windows.h"

namespace tarvo {

/// The streams of a program of the window subsystem, to which no console is given: the console of
/// the parent is joined when the first text is printed to a stream that was not redirected.
class WindowsConsole final : public Console {
 public:
  bool PrintText(OutputStream stream, const std::string& text) override;
  bool PrintUtf8(OutputStream stream, const std::string& utf8) override;

 private:
  struct Target {
    HANDLE handle = INVALID_HANDLE_VALUE;  ///< Not owned.
    bool isConsole = false;
    bool found = false;
  };
  const Target& TargetOf(OutputStream stream);
  HANDLE ConsoleOutput();

  std::array<Target, 2> targets_;
  KernelHandle console_;
};

}  // namespace tarvo
