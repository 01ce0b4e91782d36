#pragma once

#include <string>

namespace tarvo {

/// The program's current folder: relative paths count from it, and the programs that it starts
/// inherit it. Whoever starts the program chooses it, and a file dialog may change it.
class WorkingFolder {
 public:
  virtual ~WorkingFolder() = default;
  /// Makes this folder the current one; its path ends with "\". False when the system refuses, and
  /// the folder is what it was.
  virtual bool MoveInto(const std::string& folder) = 0;
};

}  // namespace tarvo
