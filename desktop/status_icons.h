#pragma once

#include "desktop/status_picture.h"
#include "platform/icons.h"

namespace tarvo {

/// The status pictures as system icons. One is drawn when the picture changes, in the size that the
/// notification area wants at that moment; no more than two are alive, however often that happens.
class StatusIcons {
 public:
  explicit StatusIcons(Icons& icons) : icons_(icons) {}
  ~StatusIcons();
  StatusIcons(const StatusIcons&) = delete;
  StatusIcons& operator=(const StatusIcons&) = delete;

  /// The icon of the three states. It lives until the picture has changed twice more, so that it
  /// can be shown until the next one is. When the system cannot make it, the icon of the call
  /// before, or 0 at the first; the next call tries again.
  IconHandle For(const AlarmStates& states);

 private:
  Icons& icons_;
  AlarmStates states_{};
  int size_ = 0;
  IconHandle shown_ = 0;
  IconHandle before_ = 0;
};

}  // namespace tarvo
