#pragma once

#include "platform/file_copies.h"
#include "platform/files.h"
#include "platform/windows/file_swap_windows.h"

namespace tarvo {

/// Copies by the system's own copy call to a file beside the target; see `SwapContent`. The copy
/// does not take the source's read-only mark over, or the next one would be refused.
class WindowsFileCopies : public FileCopies {
 public:
  explicit WindowsFileCopies(SwapSteps& steps = SystemSteps()) : steps_(steps) {}
  std::optional<FileFault> ReadLastModified(const std::string& path,
                                            std::chrono::sys_seconds& time) override;
  std::optional<FileFault> CopyOver(const std::string& source, const std::string& target) override;
  bool SameFile(const std::string& one, const std::string& other) override;
  std::optional<FileFault> Remove(const std::string& path) override;
  bool FolderExists(const std::string& path) override;
  std::optional<FileFault> MakeFolder(const std::string& path) override;

 private:
  SwapSteps& steps_;
};

/// Writes to a file beside the target, named like it with ".writing" appended; see `SwapContent`.
class WindowsFileReplacer : public FileReplacer {
 public:
  explicit WindowsFileReplacer(SwapSteps& steps = SystemSteps()) : steps_(steps) {}
  std::optional<FileFault> ReplaceText(const std::string& path, const std::string& text) override;

 private:
  SwapSteps& steps_;
};

}  // namespace tarvo
