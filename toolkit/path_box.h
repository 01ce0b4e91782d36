#pragma once

#include <functional>
#include <string>

#include "toolkit/controls.h"

namespace tarvo {

/// A text box that holds a file's full path. The operator may type into it, or drop a file onto it.
class PathBox : public TextBox {
 public:
  /// The operator drops a file here: raises `onDrop`, which decides whether its full path becomes
  /// the text.
  void Drop(const std::string& path) {
    if (Enabled() && !path.empty() && onDrop) onDrop(path);
  }

  std::function<void(const std::string&)> onDrop;
};

}  // namespace tarvo
