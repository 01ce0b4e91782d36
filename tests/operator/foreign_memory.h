#pragma once

#include <windows.h>

#include "launcher.h"

namespace tarvo {

/// Room for a `Thing` in the launcher's memory, where its native controls read and write.
template <typename Thing>
class ForeignMemory {
 public:
  explicit ForeignMemory(DWORD pid)
      : process_(
            OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, pid)),
        place_(VirtualAllocEx(process_, nullptr, sizeof(Thing), MEM_COMMIT, PAGE_READWRITE)) {
    if (!place_) throw OperatorError("the launcher's memory cannot be reached");
  }
  ~ForeignMemory() {
    VirtualFreeEx(process_, place_, 0, MEM_RELEASE);
    CloseHandle(process_);
  }
  ForeignMemory(const ForeignMemory&) = delete;
  ForeignMemory& operator=(const ForeignMemory&) = delete;

  char* Place() const { return static_cast<char*>(place_); }
  void Write(const Thing& thing) const {
    WriteProcessMemory(process_, place_, &thing, sizeof thing, nullptr);
  }
  void Read(Thing& thing) const {
    ReadProcessMemory(process_, place_, &thing, sizeof thing, nullptr);
  }

 private:
  HANDLE process_;
  void* place_;
};

}  // namespace tarvo
