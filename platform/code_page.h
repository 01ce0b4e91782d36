#pragma once

namespace tarvo {

/// What is to be known of the system's ANSI code page.
class CodePage {
 public:
  virtual ~CodePage() = default;
  /// True when this byte and the one behind it are one character together.
  virtual bool IsLeadByte(unsigned char byte) = 0;
};

}  // namespace tarvo
