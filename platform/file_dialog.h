#pragma once

#include <string>

namespace tarvo {

struct OpenFileRequest {
  std::string filterName;   ///< What the operator reads: "Executables (*.exe)".
  std::string pattern;      ///< Which files are listed: "*.exe".
  std::string initialName;  ///< Where the dialog begins; a name that is no path is passed over.
};

/// The system's dialog in which the operator picks one file that exists.
class FileDialog {
 public:
  virtual ~FileDialog() = default;
  /// The full path of the chosen file; "" when the operator cancels. Timers go on ticking
  /// meanwhile, so the caller reads every state again afterwards. The system may make another
  /// folder the current one, at once, and leave it so.
  virtual std::string AskForFile(const OpenFileRequest& request) = 0;
};

}  // namespace tarvo
