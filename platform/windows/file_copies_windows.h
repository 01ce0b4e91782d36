#pragma once

#include "platform/file_copies.h"

namespace tarvo {

/// Copies by the system's own copy call to a file beside the target, then one rename over it. The
/// copy does not take the source's read-only mark over, or the next one would be refused.
class WindowsFileCopies : public FileCopies {
 public:
  std::optional<CopyFault> ReadLastModified(const std::string& path,
                                            std::chrono::sys_seconds& time) override;
  std::optional<CopyFault> CopyOver(const std::string& source, const std::string& target) override;
  bool FolderExists(const std::string& path) override;
  std::optional<CopyFault> MakeFolder(const std::string& path) override;
};

}  // namespace tarvo
