#pragma once

#include <windows.h>

#include <functional>
#include <utility>

#include "toolkit/grid.h"
#include "toolkit/windows/look.h"

namespace tarvo {

/// The scroll bars of a window that is smaller than what is in it.
class FrameScroll {
 public:
  /// `arrange` is called when the contents have moved; it asks for `Surface` again.
  FrameScroll(HWND window, const Look& look, std::function<void()> arrange)
      : window_(window), look_(look), arrange_(std::move(arrange)) {}

  /// Where contents of at least the size `needed` are, in the window's client coordinates. They
  /// reach beyond the client where it is too small for them, and scroll bars bring the rest into
  /// view.
  RECT Surface(Extent needed);
  /// True while bars appear or disappear, which changes the window's size.
  bool BarsChange() const { return barsChange_; }

  /// A bar (SB_HORZ or SB_VERT) was used in the way that `code` says, one of the SB_ codes.
  void Scrolled(int bar, int code);
  /// The wheel was turned, in units of WHEEL_DELTA.
  void Wheeled(int turn);
  /// Brings a newly focused control into view: the keyboard never acts on one that is out of view.
  void FollowFocus();

 private:
  Extent RoomWithoutBars() const;
  void ScrollTo(int bar, int position);

  HWND window_;
  const Look& look_;
  std::function<void()> arrange_;
  bool barsChange_ = false;
  HWND followed_ = nullptr;  ///< The focus that was last brought into view.
};

}  // namespace tarvo
