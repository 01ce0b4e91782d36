#pragma once

#include "platform/icons.h"

namespace tarvo {

/// Icons by CreateIconFromResourceEx.
class WindowsIcons final : public Icons {
 public:
  int NotificationSize() override;
  IconHandle Create(const Picture& picture) override;
  void Destroy(IconHandle icon) override;
};

}  // namespace tarvo
