#pragma once

#include "platform/files.h"
#include "platform/windows/file_swap_windows.h"

namespace tarvo {

/// Writes to a file beside the target, named like it with ".writing" appended; see `SwapContent`.
class WindowsFileReplacer : public FileReplacer {
 public:
  explicit WindowsFileReplacer(SwapSteps& steps = SystemSteps()) : steps_(steps) {}
  std::optional<FileFault> ReplaceText(const std::string& path, const std::string& text) override;

 private:
  SwapSteps& steps_;
};

}  // namespace tarvo
