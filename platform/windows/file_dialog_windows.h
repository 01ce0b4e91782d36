#pragma once

#include <cstdint>

#include "platform/file_dialog.h"

namespace tarvo {

/// The open dialog of comdlg32.
class WindowsFileDialog : public FileDialog {
 public:
  /// The window that the dialog belongs to, as its handle; 0 for none. It must outlive it.
  void SetOwner(std::intptr_t window) { owner_ = window; }
  std::string AskForFile(const OpenFileRequest& request) override;

 private:
  std::intptr_t owner_ = 0;
};

}  // namespace tarvo
