#include "form/windows/check_up_frame.h"

#include <algorithm>
#include <cctype>

#include "form/control_ids.h"
#include "form/windows/frame_keys.h"
#include "form/windows/pages.h"
#include "platform/windows/window_class.h"
#include "toolkit/window_place.h"
#include "toolkit/windows/screens.h"

namespace tarvo {

CheckUpFrame::CheckUpFrame(Stage& stage, HWND owner, CheckUpView& view)
    : stage_(stage), owner_(owner), view_(view) {
  view.window.SetMirror(this);
}

CheckUpFrame::~CheckUpFrame() { Detach(); }

void CheckUpFrame::Detach() {
  view_.window.SetMirror(nullptr);
  if (!window_) return;
  panel_->Detach();
  SetOwner<CheckUpFrame>(window_, nullptr);
  DestroyWindow(window_);
  window_ = nullptr;
}

void CheckUpFrame::Create() {
  RegisterOnce([this] {
    WNDCLASSEXA record = WindowClass(stage_.instance, kCheckUpWindowClass,
                                     ProcedureOf<CheckUpFrame, &CheckUpFrame::Handle>);
    record.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
    return record;
  }());
  window_ = CreateWindowExA(WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME, kCheckUpWindowClass,
                            view_.window.Title().c_str(),
                            WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_CLIPCHILDREN, 0,
                            0, 0, 0, owner_, nullptr, stage_.instance, nullptr);
  panel_ = std::make_unique<Panel>(stage_, window_, Panel::Ground::Window);
  FillCheckUp(*panel_, view_);
  panel_->OfferTips();
  SetOwner(window_, this);
  const Place above = PlaceOf(owner_);
  Take({above.left + stage_.look.Px(24), above.top + stage_.look.Px(48), 0, 0}, ScreenOf(owner_));
}

/// As large as all of it needs, and no larger than the screen.
Extent CheckUpFrame::Least(const Place& screen) const {
  const Extent needed = panel_->Smallest();
  RECT whole{0, 0, needed.width, needed.height};
  GrowToWindow(whole, window_, stage_.look.Dpi());
  return {std::min(static_cast<int>(whole.right - whole.left), screen.width),
          std::min(static_cast<int>(whole.bottom - whole.top), screen.height)};
}

/// Takes this place, as far as that is large enough and on the screen.
void CheckUpFrame::Take(Place place, const Place& screen) {
  const Extent least = Least(screen);
  place.width = std::max(place.width, least.width);
  place.height = std::max(place.height, least.height);
  place = FittedInto(place, screen);
  SetWindowPos(window_, nullptr, place.left, place.top, place.width, place.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void CheckUpFrame::Arrange() {
  RECT client{};
  GetClientRect(window_, &client);
  panel_->Occupy(client);
}

void CheckUpFrame::TakeLook() {
  if (!window_) return;
  panel_->TakeLook();
  if (!IsZoomed(window_)) Take(PlaceOf(window_), ScreenOf(window_));
  Arrange();
  InvalidateRect(window_, nullptr, TRUE);
}

void CheckUpFrame::Refresh(const Control& /*control*/) {
  const SideWindow& wanted = view_.window;
  if (!wanted.IsOpen()) {
    if (!window_) return;
    ShowWindow(window_, SW_HIDE);
    SetActiveWindow(owner_);
    return;
  }
  if (!window_) Create();
  if (frontRequests_ == wanted.FrontRequests()) return;
  frontRequests_ = wanted.FrontRequests();
  // Its screen may have gone while it was hidden.
  if (!IsZoomed(window_)) Take(PlaceOf(window_), ScreenOf(window_));
  ShowWindow(window_, SW_SHOW);
  SetActiveWindow(window_);
}

bool CheckUpFrame::Owns(HWND window) const {
  return window_ && (window == window_ || IsChild(window_, window));
}

bool CheckUpFrame::TakeKey(const MSG& message) {
  if (message.message == WM_SYSCHAR) {
    const auto key = static_cast<unsigned char>(message.wParam);
    return key > ' ' && panel_->Access(static_cast<char>(std::tolower(key)));
  }
  const bool copies = message.message == WM_KEYDOWN && message.wParam == 'C' &&
                      IsKeyDown(VK_CONTROL) && !IsKeyDown(VK_MENU);
  if (copies) stage_.Happens([this] { view_.window.Copy(); });
  return copies;
}

bool CheckUpFrame::Take(MSG& message) {
  if (message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST) panel_->Follow(message);
  return TakeKey(message) || TakeEnterKey(message) || IsDialogMessageA(window_, &message);
}

void CheckUpFrame::Close() {
  stage_.Happens([this] { view_.window.Close(); });
}

std::optional<LRESULT> CheckUpFrame::Handle(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_CLOSE:
      Close();
      return 0;
    case WM_COMMAND:
      // The dialog manager's way to say that Esc was pressed.
      if (LOWORD(w) == IDCANCEL) Close();
      return 0;
    case WM_SIZE:
      Arrange();
      return 0;
    case WM_GETMINMAXINFO: {
      const Extent least = Least(ScreenOf(window_));
      reinterpret_cast<MINMAXINFO*>(l)->ptMinTrackSize = {least.width, least.height};
      return 0;
    }
    case WM_ACTIVATE:
      if (LOWORD(w) == WA_INACTIVE && IsChild(window_, GetFocus())) lastFocus_ = GetFocus();
      break;
    case WM_SETFOCUS: {
      const bool usable = lastFocus_ && IsWindowEnabled(lastFocus_);
      SetFocus(usable ? lastFocus_ : GetNextDlgTabItem(window_, nullptr, FALSE));
      return 0;
    }
    default:
      break;
  }
  return std::nullopt;
}

}  // namespace tarvo
