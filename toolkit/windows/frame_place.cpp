#include "toolkit/windows/frame_place.h"

#include <algorithm>

#include "toolkit/window_place.h"
#include "toolkit/windows/dpi.h"
#include "toolkit/windows/screens.h"

namespace tarvo {
namespace {

constexpr Extent kUsualClient = {760, 480};  ///< At 100 %, unless the pages need more.

int TitleHeight() { return GetSystemMetrics(SM_CYCAPTION) + GetSystemMetrics(SM_CYSIZEFRAME); }

Extent WindowAround(Extent client, HWND window, int dpi) {
  RECT around{0, 0, client.width, client.height};
  GrowToWindow(around, window, dpi);
  return {static_cast<int>(around.right - around.left),
          static_cast<int>(around.bottom - around.top)};
}

}  // namespace

void FramePlace::TakeFirst() {
  const Extent usual = WindowAround({look_.Px(kUsualClient.width), look_.Px(kUsualClient.height)},
                                    window_, look_.Dpi());
  Place place = PlaceOf(window_);
  place.width = usual.width;
  place.height = usual.height;
  Take(FittedInto(Enlarged(place), ScreenOf(window_)));
}

/// The size that shows everything, unless the screen is smaller.
Extent FramePlace::Least() const {
  const Extent smallest = WindowAround(needed_(), window_, look_.Dpi());
  const Place screen = ScreenOf(window_);
  return {std::min(smallest.width, screen.width), std::min(smallest.height, screen.height)};
}

Place FramePlace::Enlarged(Place place) const {
  const Extent least = Least();
  place.width = std::max(place.width, least.width);
  place.height = std::max(place.height, least.height);
  return place;
}

void FramePlace::Take(const Place& place) const {
  SetWindowPos(window_, nullptr, place.left, place.top, place.width, place.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void FramePlace::TakeWanted() {
  const auto& wanted = control_.Standing();
  if (!wanted || wanted == known_) return;
  known_ = wanted;
  if (WithinReach(*wanted, TitleHeight(), Screens())) Take(Enlarged(*wanted));
}

void FramePlace::Enlarge() {
  const Place place = PlaceOf(window_);
  if (IsIconic(window_) || Enlarged(place) == place) return;
  Take(FittedInto(Enlarged(place), ScreenOf(window_)));
}

void FramePlace::KeepQuiet() {
  if (!known_) known_ = PlaceOf(window_);
}

void FramePlace::Report() {
  if (!IsWindowVisible(window_) || IsIconic(window_) || IsZoomed(window_)) return;
  const Place place = PlaceOf(window_);
  if (place == known_) return;
  known_ = place;
  control_.MovedTo(place);
}

void FramePlace::KeepWithinReach() {
  const Place place = PlaceOf(window_);
  if (IsIconic(window_) || WithinReach(place, TitleHeight(), Screens())) return;
  Take(FittedInto(Enlarged(place), ScreenOf(window_)));
}

void FramePlace::Limit(MINMAXINFO& limits) const {
  const Extent least = Least();
  limits.ptMinTrackSize = {least.width, least.height};
}

void FramePlace::MoveTo(const RECT& place) const {
  Take({static_cast<int>(place.left), static_cast<int>(place.top),
        static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top)});
}

}  // namespace tarvo
