#pragma once

#include <array>

#include "desktop/status_picture.h"
#include "platform/icons.h"

namespace tarvo {

/// The status pictures as system icons. Each is drawn when it is first asked for and kept until the
/// notification area wants another size, so that however often the picture changes, no more icons
/// are alive than there are pictures.
class StatusIcons {
 public:
  explicit StatusIcons(Icons& icons) : icons_(icons) {}
  ~StatusIcons() { Forget(); }
  StatusIcons(const StatusIcons&) = delete;
  StatusIcons& operator=(const StatusIcons&) = delete;

  /// The icon of the three states, in the size that is shown at this moment. It lives until the
  /// next call. When the system has no room for it, 0; the next call tries again.
  IconHandle For(const AlarmStates& states);

 private:
  static constexpr std::size_t kStates = 3;

  void Forget();

  Icons& icons_;
  int size_ = 0;
  std::array<IconHandle, kStates * kStates * kStates> made_{};
};

}  // namespace tarvo
