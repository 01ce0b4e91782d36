#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarvo {

/// One run of a script; 0 means none.
using ScriptRun = std::uint32_t;

struct ScriptVariable {
  std::string name;
  std::string value;
};

/// Command scripts that run beside the program.
class Scripts {
 public:
  virtual ~Scripts() = default;
  /// Starts the command script of that full path without a window, in its own folder, below normal
  /// priority, and returns at once. It has this program's environment and the variables besides,
  /// which go before those of the same name. 0 when the system refuses.
  virtual ScriptRun Start(const std::string& path,
                          const std::vector<ScriptVariable>& variables) = 0;
  /// Whether the script or anything that it has started is still there. A run that is over is
  /// forgotten.
  virtual bool Runs(ScriptRun run) = 0;
  /// Asks the system to end the script with all that it has started, and does not wait: `Runs` says
  /// when that has happened. Nothing for a run that is over.
  virtual void End(ScriptRun run) = 0;
};

}  // namespace tarvo
