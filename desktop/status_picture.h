#pragma once

#include "core/component.h"
#include "platform/icons.h"

namespace tarvo {

/// The alarm state of each component at one moment.
using AlarmStates = PerComponent<AlarmState>;

/// The inks of the status pictures, 0xRRGGBB. Each stands out from light and dark task bars
/// (contrast at least 3), so that no picture needs a background of its own.
inline constexpr std::uint32_t kHealthyInk = 0x12913A;
inline constexpr std::uint32_t kTroubleInk = 0xE5322D;
inline constexpr std::uint32_t kUnwatchedInk = 0x808080;
inline constexpr std::uint32_t kCheckInk = 0xFFFFFF;

inline constexpr int kSmallestPicture = 16;
inline constexpr int kLargestPicture = 96;

/// Draws the three states as one picture for the notification area, `size` pixels across (a size
/// outside the limits is brought within). Login is at the top left, Char at the top right, Map
/// below between them.
///
/// Each state has a shape of its own, for operators who cannot distinguish the colours: healthy is
/// a disc, in pictures that are large enough (24 pixels) with a check mark in it; trouble is a
/// cross; not watched is a ring. Marks are aligned to whole pixels and their edges are smooth, so
/// they are sharp at every size. The same states and size give the same picture, to the last bit.
Picture DrawStatusPicture(const AlarmStates& states, int size);

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
