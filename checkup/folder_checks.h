#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "checkup/finding.h"

namespace tarvo {

/// The launcher's folder as a whole.
struct FolderFacts {
  bool inCodePage = true;
  bool answers = true;
  /// Files of a server root that are missing or cannot be read, and why.
  struct Unread {
    std::string file;
    std::string why;  ///< "" when it is simply missing.
  };
  std::vector<Unread> unread;
  /// What the launcher writes and may not write.
  std::vector<std::string> unwritable;
  std::optional<std::uint64_t> freeSpace;
  std::uint64_t executablesSize = 0;  ///< Of all three together.
  bool hasBlank = false;              ///< Its path, or the name of an executable.
  std::size_t longestBackupPath = 0;  ///< In characters.
};

Findings CheckFolder(const FolderFacts& facts);

}  // namespace tarvo
