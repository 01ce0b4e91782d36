#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <utility>

#include "toolkit/grid.h"
#include "toolkit/main_window.h"
#include "toolkit/windows/look.h"

namespace tarvo {

/// The place and size of the main window on the desktop: never smaller than its contents, as far as
/// the screen allows, and never out of the operator's reach.
class FramePlace {
 public:
  /// `needed` returns the smallest client area that shows all contents.
  FramePlace(HWND window, MainWindow& control, const Look& look, std::function<Extent()> needed)
      : window_(window), control_(control), look_(look), needed_(std::move(needed)) {}

  /// Gives a new window its size: the usual one, or what shows everything if that is more.
  void TakeFirst();
  /// Moves the window to where the program wants it, if that is within the operator's reach.
  void TakeWanted();
  /// Enlarges the window if its contents have come to need more.
  void Enlarge();
  /// Takes the window's present place as known: nobody moved it there, so it is not reported.
  void KeepQuiet();
  /// Reports to the program where the operator has moved the window.
  void Report();
  /// A screen was removed or has another size now.
  void KeepWithinReach();
  void Limit(MINMAXINFO& limits) const;
  void MoveTo(const RECT& place) const;

 private:
  Extent Least() const;
  Place Enlarged(Place place) const;
  void Take(const Place& place) const;

  HWND window_;
  MainWindow& control_;
  const Look& look_;
  std::function<Extent()> needed_;
  bool quiet_ = false;
  std::optional<Place> asked_;  ///< The place that the program wanted last, in reach or not.
  std::optional<Place> known_;  ///< Where the window is without the operator's doing.
};

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
