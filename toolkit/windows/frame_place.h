#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <utility>

#include "toolkit/main_window.h"
#include "toolkit/windows/look.h"

namespace tarvo {

/// Where the main window lies on the desktop and how large it is: never smaller than its contents
/// as far as the screen goes, and never out of the operator's reach.
class FramePlace {
 public:
  /// `needed` tells the smallest client area that shows all contents.
  FramePlace(HWND window, MainWindow& control, const Look& look, std::function<Extent()> needed)
      : window_(window), control_(control), look_(look), needed_(std::move(needed)) {}

  /// Gives a new window its size: the usual one, or what shows everything if that is more.
  void TakeFirst();
  /// Moves the window to where the program wants it, if the operator could take it there.
  void TakeWanted();
  /// Enlarges the window if its contents have come to need more.
  void Enlarge();
  /// A place that the window has now, though nobody moved it there, is not reported.
  void KeepQuiet();
  /// Reports to the program where the operator has moved the window.
  void Report();
  /// A screen was taken away or has another size now.
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
  std::optional<Place> known_;  ///< The place that program and window agree on.
};

}  // namespace tarvo
