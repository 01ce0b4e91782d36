#pragma once

#include <string>

#include "platform/clipboard.h"

namespace tarvo {

/// A clipboard that another program may keep open.
class SimClipboard final : public Clipboard {
 public:
  bool PutText(const std::string& newText) override {
    if (!keptOpen) text = newText;
    return !keptOpen;
  }

  std::string text;
  bool keptOpen = false;
};

}  // namespace tarvo
