#include <algorithm>

#include "ui/window_place.h"
#include "ui/windows/dpi.h"
#include "ui/windows/main_frame.h"
#include "ui/windows/screens.h"

namespace tarvo {
namespace {

constexpr Extent kUsualClient = {760, 480};  ///< At 100 %, unless the pages need more.

int TitleHeight() { return GetSystemMetrics(SM_CYCAPTION) + GetSystemMetrics(SM_CYSIZEFRAME); }

}  // namespace

/// The usual size, or what shows everything if that is more, as far as the screen goes.
void MainFrame::TakeFirstPlace() {
  RECT around{0, 0, stage_.look.Px(kUsualClient.width), stage_.look.Px(kUsualClient.height)};
  GrowToWindow(around, window_, stage_.look.Dpi());
  Place place = PlaceOf(window_);
  place.width = static_cast<int>(around.right - around.left);
  place.height = static_cast<int>(around.bottom - around.top);
  TakePlace(FittedInto(Enlarged(place), ScreenOf(window_)));
}

Place MainFrame::Enlarged(Place place) const {
  const Extent least = LeastWindow();
  place.width = std::max(place.width, least.width);
  place.height = std::max(place.height, least.height);
  return place;
}

void MainFrame::TakePlace(const Place& place) {
  SetWindowPos(window_, nullptr, place.left, place.top, place.width, place.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

/// Where the program wants the window to stand, if the operator could take it there.
void MainFrame::TakeStanding() {
  const auto& wanted = stage_.form.frame.window.Standing();
  if (!wanted || wanted == told_) return;
  told_ = wanted;
  if (WithinReach(*wanted, TitleHeight(), Screens())) TakePlace(Enlarged(*wanted));
}

void MainFrame::TellPlace() {
  if (!IsWindowVisible(window_) || IsIconic(window_) || IsZoomed(window_)) return;
  const Place place = PlaceOf(window_);
  if (place == told_) return;
  told_ = place;
  stage_.form.frame.window.MovedTo(*told_);
}

/// A screen was taken away or has another size now.
void MainFrame::KeepWithinReach() {
  const Place place = PlaceOf(window_);
  if (IsIconic(window_) || WithinReach(place, TitleHeight(), Screens())) return;
  TakePlace(FittedInto(Enlarged(place), ScreenOf(window_)));
}

}  // namespace tarvo
