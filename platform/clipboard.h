#pragma once

#include <string>

namespace tarvo {

/// The system's clipboard.
class Clipboard {
 public:
  virtual ~Clipboard() = default;
  /// Replaces what it holds by this text. False when another program keeps it open.
  virtual bool PutText(const std::string& text) = 0;
};

}  // namespace tarvo
