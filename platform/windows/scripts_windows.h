#pragma once

#include <map>

#include "platform/scripts.h"
#include "platform/windows/handle_windows.h"

namespace tarvo {

/// Scripts by the command interpreter of the system folder, and by no other of that name. Each runs
/// in a job of its own, which holds its children too; where the system puts it into none (before
/// Windows 8, when this program is in a job itself), the interpreter alone is watched and ended.
/// Scripts that still run when this object ends are left alone.
class WindowsScripts final : public Scripts {
 public:
  ScriptRun Start(const std::string& path, const std::vector<ScriptVariable>& variables) override;
  bool Runs(ScriptRun run) override;
  void End(ScriptRun run) override;

 private:
  struct Running {
    KernelHandle process;
    KernelHandle job;  ///< Valid when the process is in it.
    bool Goes() const;
  };

  std::map<ScriptRun, Running> running_;
  ScriptRun last_ = 0;
};

}  // namespace tarvo
