#pragma once

#include <string>

#include "platform/console.h"

namespace tarvo {

/// What a program has printed, each stream as its bytes.
class SimConsole final : public Console {
 public:
  bool PrintText(OutputStream stream, const std::string& text) override {
    return Take(stream, text);
  }
  bool PrintUtf8(OutputStream stream, const std::string& utf8) override {
    return Take(stream, utf8);
  }

  std::string output;
  std::string error;
  bool takesNothing = false;  ///< As on a full disk.

 private:
  bool Take(OutputStream stream, const std::string& text) {
    if (takesNothing && stream == OutputStream::Output) return false;
    (stream == OutputStream::Output ? output : error) += text;
    return true;
  }
};

}  // namespace tarvo
