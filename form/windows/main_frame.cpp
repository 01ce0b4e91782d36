#include "form/windows/main_frame.h"

#include <algorithm>

#include "form/control_ids.h"
#include "form/windows/pages.h"
#include "form/windows/resource_ids.h"
#include "platform/windows/launcher_call_windows.h"
#include "platform/windows/process_rights.h"
#include "platform/windows/window_class.h"
#include "toolkit/windows/common_controls.h"

#ifndef WM_DPICHANGED
#define WM_DPICHANGED 0x02E0
#endif

namespace tarvo {
namespace {

constexpr int kLogPage = 0;
constexpr int kMargin = 8;  ///< Around the tab view, at 100 %.

HICON LoadLauncherIcon(HINSTANCE instance, int width, int height) {
  const HANDLE icon = LoadImageA(instance, MAKEINTRESOURCEA(kLauncherIcon), IMAGE_ICON,
                                 GetSystemMetrics(width), GetSystemMetrics(height), LR_SHARED);
  return icon ? static_cast<HICON>(icon) : LoadIcon(nullptr, IDI_APPLICATION);
}

Stage& Begun(Stage& stage, HWND window) {
  stage.look.Renew(window);
  return stage;
}

}  // namespace

HWND MainFrame::CreateMainWindow(HINSTANCE instance) {
  LoadCommonControls();
  WNDCLASSEXA record =
      WindowClass(instance, kMainWindowClass, ProcedureOf<MainFrame, &MainFrame::Handle>);
  record.hIcon = LoadLauncherIcon(instance, SM_CXICON, SM_CYICON);
  record.hIconSm = LoadLauncherIcon(instance, SM_CXSMICON, SM_CYSMICON);
  record.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
  RegisterOnce(record);
  return CreateWindowExA(WS_EX_CONTROLPARENT, kMainWindowClass, "",
                         WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT, 0, 0,
                         nullptr, nullptr, instance, nullptr);
}

MainFrame::MainFrame(Form& form, TimerQueue& timers, EventDispatch& dispatch)
    : form_(form),
      stage_{form.frame.window, dispatch, GetModuleHandleA(nullptr), {}},
      window_(CreateMainWindow(stage_.instance)),
      header_(Begun(stage_, window_), window_, Panel::Ground::Window),
      tabs_(stage_, window_, NumberOf("SSTab1"), form.frame.SSTab1,
            {"Status", "Servers", "Server Battle Randomizer ", "Upgrade"}),
      place_(window_, form.frame.window, stage_.look, [this] { return SmallestClient(); }),
      scroll_(window_, stage_.look, [this] { Arrange(); }),
      keys_(
          window_, tabs_, [this]() -> Panel& { return ShownPage(); },
          [this] { return GetDlgItem(Page(kLogPage).Window(), NumberOf("RTLog")); }),
      checkUp_(stage_, window_, form.checkUp),
      timers_(stage_, timers, window_) {
  SetOwner(window_, this);
  FillHeader(header_, form.frame);
  tabs_.TakeLook();
  place_.TakeFirst();
  form.frame.window.SetMirror(this);
  ShowAsWanted();
  // At the end of the session it is asked before the servers are ended, which would have crashed
  // otherwise: the first of what programs may ask for, where 0x280 is usual.
  SetProcessShutdownParameters(0x3FF, 0);
  // Who has less rights may ask how things are.
  if (HasMoreRightsThanUsual()) {
    ChangeWindowMessageFilterEx(window_, WM_COPYDATA, MSGFLT_ALLOW, nullptr);
  }
  PostMessageA(window_, kCompletePagesMessage, 0, 0);
}

MainFrame::~MainFrame() {
  stage_.window.SetMirror(nullptr);
  checkUp_.Detach();
  header_.Detach();
  tabs_.Detach();
  for (const auto& page : pages_) {
    if (page) page->Detach();
  }
  SetOwner<MainFrame>(window_, nullptr);
  DestroyWindow(window_);
}

void MainFrame::Refresh(const Control& /*control*/) { ShowAsWanted(); }

void MainFrame::ShowAsWanted() {
  const MainWindow& wanted = stage_.window;
  if (TextOf(window_) != wanted.Title()) SetWindowTextA(window_, wanted.Title().c_str());
  if (wanted.Ended()) {
    // Ends the loop of a message box as well, if one is open.
    PostQuitMessage(wanted.ExitCode());
    return;
  }
  place_.TakeWanted();
  const bool visible = IsWindowVisible(window_) != FALSE;
  const bool iconic = IsIconic(window_) != FALSE;
  const bool toFront = wanted.Visible() && frontRequests_ != wanted.FrontRequests();
  if (!wanted.Visible()) {
    if (visible) ShowWindow(window_, SW_HIDE);
  } else if (wanted.State() == WindowState::Minimized) {
    if (!visible || !iconic) ShowWindow(window_, SW_SHOWMINNOACTIVE);
  } else if (iconic) {
    // A restore would maximize once more what was minimized while maximized, and a second one that
    // follows at once is lost where the desktop hears of both later. This command forgets that the
    // window was maximized.
    ShowWindow(window_, toFront ? SW_SHOWNOACTIVATE : SW_RESTORE);
  } else if (!visible) {
    ShowFirst();
  }
  if (!toFront) return;
  if (IsZoomed(window_)) ShowWindow(window_, SW_RESTORE);
  frontRequests_ = wanted.FrontRequests();
  SetForegroundWindow(window_);
}

/// Another program shows a window that began minimized: that one was never an icon either.
void MainFrame::ShownFromOutside() {
  MainWindow& window = stage_.window;
  if (window.Visible() || window.State() != WindowState::Minimized) return;
  stage_.Happens([&window] { window.SetState(WindowState::Normal); });
}

void MainFrame::Sized(WPARAM kind) {
  MainWindow& window = stage_.window;
  if (kind == SIZE_MINIMIZED) {
    iconic_ = true;
    stage_.Happens([&window] { window.SetState(WindowState::Minimized); });
    return;
  }
  RECT client{};
  GetClientRect(window_, &client);
  // The first show reports the size once more.
  if (!scroll_.BarsChange() && !EqualRect(&client, &arranged_)) Arrange();
  place_.Report();
  if (!iconic_) return;
  iconic_ = false;
  stage_.Happens([&window] { window.SetState(WindowState::Normal); });
}

/// A window that began minimized was never an icon, so restoring it does not change its size.
void MainFrame::Restoring() {
  MainWindow& window = stage_.window;
  if (!IsIconic(window_)) {
    stage_.Happens([&window] { window.SetState(WindowState::Normal); });
  }
}

void MainFrame::TakeLook() {
  stage_.look.Renew(window_);
  header_.TakeLook();
  tabs_.TakeLook();
  for (const auto& page : pages_) {
    if (page) page->TakeLook();
  }
  checkUp_.TakeLook();
  Arrange();
  InvalidateRect(window_, nullptr, TRUE);
}

void MainFrame::Arrange() {
  const RECT whole = scroll_.Surface(SmallestClient());
  GetClientRect(window_, &arranged_);
  const LONG margin = stage_.look.Px(kMargin);
  const LONG headerEnd = whole.top + header_.Smallest().height;
  pageRoom_ =
      tabs_.Occupy({whole.left + margin, headerEnd, whole.right - margin, whole.bottom - margin});
  // What is above the pages is aligned with their left and right edges.
  header_.Occupy({pageRoom_.left, whole.top, pageRoom_.right, headerEnd});
  for (const auto& page : pages_) {
    if (page) page->Occupy(pageRoom_);
  }
}

Extent MainFrame::SmallestClient() const {
  Extent inside;
  for (const auto& page : pages_) {
    if (!page) continue;
    const Extent needed = page->Smallest();
    inside.width = std::max(inside.width, needed.width);
    inside.height = std::max(inside.height, needed.height);
  }
  const Extent frame = tabs_.FrameExtent();
  const Extent header = header_.Smallest();
  const int margin = stage_.look.Px(kMargin);
  return {std::max(header.width, inside.width) + frame.width + 2 * margin,
          header.height + inside.height + frame.height + margin};
}

void MainFrame::FollowMouse(const MSG& message) {
  if (message.message < WM_MOUSEFIRST || message.message > WM_MOUSELAST) return;
  header_.Follow(message);
  ShownPage().Follow(message);
}

bool MainFrame::Take(MSG& message) {
  FollowMouse(message);
  if (checkUp_.Owns(message.hwnd)) return checkUp_.Take(message);
  if (message.hwnd != window_ && !IsChild(window_, message.hwnd))
    return keys_.TakeOfDialog(message);
  const bool taken = keys_.Take(message);
  scroll_.FollowFocus();
  return taken;
}

void MainFrame::KeepFocus(bool active) {
  const HWND focus = GetFocus();
  if (!active && focus && IsChild(window_, focus)) lastFocus_ = focus;
}

void MainFrame::GiveFocus() {
  const bool usable = lastFocus_ && IsWindowVisible(lastFocus_) && IsWindowEnabled(lastFocus_);
  SetFocus(usable ? lastFocus_ : GetNextDlgTabItem(window_, nullptr, FALSE));
}

/// The sender is kept waiting for no longer than it takes to copy the message. It may have come in
/// the midst of an event.
bool MainFrame::TakeReceived(const COPYDATASTRUCT& data) {
  if (data.dwData != kCallMark || data.cbData > kLongestMessage || data.lpData == nullptr ||
      received_.size() >= kMostReceived) {
    return false;
  }
  received_.emplace_back(static_cast<const char*>(data.lpData), data.cbData);
  if (PostMessageA(window_, kReceivedMessage, 0, 0) != FALSE) return true;
  // The sender hears that it was refused; what comes next would be taken for it.
  received_.pop_back();
  return false;
}

void MainFrame::HandOnReceived() {
  if (received_.empty() || stage_.window.Ended()) return;
  const std::string message = std::move(received_.front());
  received_.pop_front();
  stage_.window.Receive(message);
}

/// Whoever has asked may have gone without another word, as an installer that was ended.
void MainFrame::AskForEndOfSession() {
  constexpr UINT kLongestQuestion = 10 * 60 * 1000;
  SetTimer(window_, kSessionTimer, kLongestQuestion, nullptr);
  stage_.Happens([this] { stage_.window.AskForEndOfSession(); });
}

void MainFrame::EndOfSession(bool ends) {
  KillTimer(window_, kSessionTimer);
  stage_.Happens([this, ends] {
    MainWindow& window = stage_.window;
    if (ends) {
      window.EndSession();
    } else {
      window.CallOffEndOfSession();
    }
  });
}

std::optional<LRESULT> MainFrame::Handle(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_TIMER:
      if (w == kSessionTimer) {
        EndOfSession(false);
      } else {
        timers_.Tick();
      }
      return 0;
    case kCompletePagesMessage:
      CompletePages();
      return 0;
    case WM_COPYDATA:
      return TakeReceived(*reinterpret_cast<const COPYDATASTRUCT*>(l)) ? TRUE : FALSE;
    case kReceivedMessage:
      HandOnReceived();
      return 0;
    case WM_CLOSE:
      stage_.Happens([this] { stage_.window.Close(); });
      return 0;
    case WM_QUERYENDSESSION:
      AskForEndOfSession();
      return TRUE;
    case WM_ENDSESSION:
      EndOfSession(w != FALSE);
      return 0;
    case WM_SIZE:
      Sized(w);
      return 0;
    case WM_MOVE:
      place_.Report();
      return 0;
    case WM_DISPLAYCHANGE:
      place_.KeepWithinReach();
      break;
    case WM_SHOWWINDOW:
      if (w && l == 0) ShownFromOutside();
      break;
    case WM_SYSCOMMAND:
      if ((w & 0xFFF0U) == SC_RESTORE) Restoring();
      break;
    case WM_HSCROLL:
    case WM_VSCROLL:
      scroll_.Scrolled(message == WM_HSCROLL ? SB_HORZ : SB_VERT, LOWORD(w));
      return 0;
    case WM_MOUSEWHEEL:
      scroll_.Wheeled(static_cast<short>(HIWORD(w)));
      return 0;
    case WM_GETMINMAXINFO:
      place_.Limit(*reinterpret_cast<MINMAXINFO*>(l));
      return 0;
    case WM_NOTIFY:
      if (reinterpret_cast<const NMHDR*>(l)->code == TCN_SELCHANGE) tabs_.Chosen();
      return 0;
    case WM_ACTIVATE:
      KeepFocus(LOWORD(w) != WA_INACTIVE);
      break;
    case WM_SETFOCUS:
      GiveFocus();
      return 0;
    case WM_DPICHANGED:
      TakeLook();
      place_.MoveTo(*reinterpret_cast<const RECT*>(l));
      return 0;
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
    case WM_SYSCOLORCHANGE:
      TakeLook();
      break;
    default:
      break;
  }
  return std::nullopt;
}

}  // namespace tarvo
