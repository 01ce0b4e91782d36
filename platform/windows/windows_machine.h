#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/machine.h"

namespace tarvo {

/// Full path of this program's executable.
std::wstring OwnExecutablePath();

/// The folder of an executable, without a "\\" at its end, by the one name that the file system
/// knows it by. The given name where that cannot be learned, or has letters that the system's code
/// page does not have.
std::string RealFolderOf(const std::wstring& executablePath);

/// The real machine: owns the one adapter of each port. Its references live as long as it does.
class WindowsMachine {
 public:
  WindowsMachine();
  ~WindowsMachine();
  WindowsMachine(const WindowsMachine&) = delete;
  WindowsMachine& operator=(const WindowsMachine&) = delete;

  Machine Ports();

  /// The window (a handle of this process) that message boxes and dialogs belong to from now on; 0
  /// for none.
  void SetOwner(std::intptr_t window);

 private:
  struct Adapters;
  std::unique_ptr<Adapters> adapters_;
};

}  // namespace tarvo
