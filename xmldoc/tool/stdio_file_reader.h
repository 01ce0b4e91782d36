#pragma once

#include <string>

#include "platform/files.h"

namespace tarvo {

/// Reads files by the standard library alone, for tools that run on any system. Paths are the
/// system's own.
class StdioFileReader : public FileReader {
 public:
  bool Exists(const std::string& path) override;
  ReadResult ReadText(const std::string& path, std::string& text) override;
};

}  // namespace tarvo
