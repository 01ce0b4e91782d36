#include "toolkit/windows/frame_place.h"

#include <algorithm>

#include "toolkit/window_place.h"
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

constexpr int kStep = 24;  ///< Of an arrow and of a third of a wheel's notch, at 100 %.

SCROLLINFO BarOf(HWND window, int bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(window, bar, &info);
  return info;
}

/// Shows a bar for `whole`, of which `seen` is visible; none when that is all. Returns the
/// position, the old one as far as it is still in range.
int SetBar(HWND window, int bar, int whole, int seen) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE;
  info.nMax = std::max(whole, seen) - 1;
  info.nPage = static_cast<UINT>(seen);
  SetScrollInfo(window, bar, &info, TRUE);
  return BarOf(window, bar).nPos;
}

/// How far to scroll until a stretch is between 0 and `room`; of a longer one its beginning.
int Outside(LONG begin, LONG end, LONG room) {
  if (begin < 0 || begin >= room) return static_cast<int>(begin);
  return end - begin > room ? 0 : static_cast<int>(std::max(0L, end - room));
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
  if (!wanted || wanted == asked_ || wanted == known_) return;
  asked_ = wanted;
  if (!WithinReach(*wanted, TitleHeight(), Screens())) return;
  known_ = wanted;
  Take(Enlarged(*wanted));
  // On a screen of another scale the system has suggested a size, made of this one, that was taken.
  if (PlaceOf(window_) != Enlarged(*wanted)) Take(Enlarged(*wanted));
}

void FramePlace::Enlarge() {
  const Place place = PlaceOf(window_);
  if (IsIconic(window_) || Enlarged(place) == place) return;
  Take(FittedInto(Enlarged(place), ScreenOf(window_)));
}

void FramePlace::KeepQuiet() { known_ = PlaceOf(window_); }

void FramePlace::Report() {
  if (quiet_ || !IsWindowVisible(window_) || IsIconic(window_) || IsZoomed(window_)) return;
  const Place place = PlaceOf(window_);
  if (place == known_) return;
  known_ = place;
  control_.MovedTo(place);
}

void FramePlace::KeepWithinReach() {
  const Place place = PlaceOf(window_);
  if (IsIconic(window_) || IsZoomed(window_)) return;
  if (WithinReach(place, TitleHeight(), Screens())) return;
  // Not the operator's move: his place counts again once its screen is back.
  quiet_ = true;
  Take(FittedInto(Enlarged(place), ScreenOf(window_)));
  quiet_ = false;
  KeepQuiet();
}

void FramePlace::Limit(MINMAXINFO& limits) const {
  const Extent least = Least();
  limits.ptMinTrackSize = {least.width, least.height};
}

void FramePlace::MoveTo(const RECT& place) const {
  Take({static_cast<int>(place.left), static_cast<int>(place.top),
        static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top)});
}

Extent FrameScroll::RoomWithoutBars() const {
  RECT client{};
  GetClientRect(window_, &client);
  const LONG_PTR style = GetWindowLongPtrA(window_, GWL_STYLE);
  Extent room{static_cast<int>(client.right), static_cast<int>(client.bottom)};
  if ((style & WS_VSCROLL) != 0) room.width += GetSystemMetrics(SM_CXVSCROLL);
  if ((style & WS_HSCROLL) != 0) room.height += GetSystemMetrics(SM_CYHSCROLL);
  return room;
}

RECT FrameScroll::Surface(Extent needed) {
  Extent seen = RoomWithoutBars();
  const bool across = seen.width < needed.width;
  if (across) seen.height -= GetSystemMetrics(SM_CYHSCROLL);
  const bool down = seen.height < needed.height;
  if (down) seen.width -= GetSystemMetrics(SM_CXVSCROLL);
  if (!across && seen.width < needed.width) seen.height -= GetSystemMetrics(SM_CYHSCROLL);
  barsChange_ = true;
  const LONG left = -SetBar(window_, SB_HORZ, needed.width, seen.width);
  const LONG top = -SetBar(window_, SB_VERT, needed.height, seen.height);
  barsChange_ = false;
  return {left, top, left + std::max(seen.width, needed.width),
          top + std::max(seen.height, needed.height)};
}

void FrameScroll::ScrollTo(int bar, int position) {
  const int before = BarOf(window_, bar).nPos;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_POS;
  info.nPos = position;
  SetScrollInfo(window_, bar, &info, TRUE);
  if (BarOf(window_, bar).nPos != before) arrange_();
}

void FrameScroll::Scrolled(int bar, int code) {
  const SCROLLINFO info = BarOf(window_, bar);
  const int step = look_.Px(kStep);
  const int page = static_cast<int>(info.nPage);
  switch (code) {
    case SB_LINEUP:
      return ScrollTo(bar, info.nPos - step);
    case SB_LINEDOWN:
      return ScrollTo(bar, info.nPos + step);
    case SB_PAGEUP:
      return ScrollTo(bar, info.nPos - page);
    case SB_PAGEDOWN:
      return ScrollTo(bar, info.nPos + page);
    case SB_TOP:
      return ScrollTo(bar, info.nMin);
    case SB_BOTTOM:
      return ScrollTo(bar, info.nMax);
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return ScrollTo(bar, info.nTrackPos);
    default:
      return;
  }
}

void FrameScroll::Wheeled(int turn) {
  ScrollTo(SB_VERT, BarOf(window_, SB_VERT).nPos - turn * 3 * look_.Px(kStep) / WHEEL_DELTA);
}

void FrameScroll::FollowFocus() {
  const HWND focus = GetFocus();
  if (focus == followed_ || !IsChild(window_, focus)) return;
  followed_ = focus;
  RECT place{};
  GetWindowRect(focus, &place);
  MapWindowPoints(nullptr, window_, reinterpret_cast<POINT*>(&place), 2);
  RECT client{};
  GetClientRect(window_, &client);
  const int across = Outside(place.left, place.right, client.right);
  const int down = Outside(place.top, place.bottom, client.bottom);
  if (across != 0) ScrollTo(SB_HORZ, BarOf(window_, SB_HORZ).nPos + across);
  if (down != 0) ScrollTo(SB_VERT, BarOf(window_, SB_VERT).nPos + down);
}

}  // namespace tarvo
