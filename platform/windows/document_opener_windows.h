#pragma once

#include "platform/document_opener.h"

namespace tarvo {

/// Documents by ShellExecuteA; a file that the shell has no program for is opened in the notepad.
class WindowsDocumentOpener final : public DocumentOpener {
 public:
  bool Open(const std::string& path) override;
};

}  // namespace tarvo
