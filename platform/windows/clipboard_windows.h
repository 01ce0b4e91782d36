#pragma once

#include "platform/clipboard.h"

namespace tarvo {

class WindowsClipboard : public Clipboard {
 public:
  /// Tries again for a moment, since other programs look at the clipboard at each change.
  bool PutText(const std::string& text) override;
};

}  // namespace tarvo
