#include "ui/windows/native_window.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "platform/windows/clock_windows.h"

namespace tarvo {
namespace {

constexpr UINT kDpiChanged = 0x02E0;  // WM_DPICHANGED, which older headers lack.

/// The launcher's window, shown, and what the system tells it while it runs.
class ShownWindow : public ::testing::Test {
 protected:
  ShownWindow() {
    form_.frame.window.SetVisible(true);
    HandleMessages();
  }

  HWND Window() const { return reinterpret_cast<HWND>(window_.Handle()); }
  RECT Area() const {
    RECT area{};
    GetWindowRect(Window(), &area);
    return area;
  }
  void MoveTo(int left, int top) {
    SetWindowPos(Window(), nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    HandleMessages();
  }
  void Tell(UINT message, WPARAM w, LPARAM l) {
    SendMessageA(Window(), message, w, l);
    HandleMessages();
  }
  static void HandleMessages() {
    MSG message{};
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
  }

 private:
  WindowsTickClock clock_;
  TimerQueue timers_{clock_};
  Form form_{timers_};
  EventDispatch dispatch_;
  NativeWindow window_{form_, timers_, dispatch_};
};

TEST_F(ShownWindow, TakesThePlaceThatAnotherScaleSuggests) {
  RECT suggested{40, 50, 1040, 750};
  Tell(kDpiChanged, MAKEWPARAM(120, 120), reinterpret_cast<LPARAM>(&suggested));
  const RECT area = Area();
  EXPECT_TRUE(EqualRect(&area, &suggested)) << area.left << ' ' << area.top << ' ' << area.right;
}

TEST_F(ShownWindow, ComesBackWhenItsScreenIsGone) {
  const int screenWidth = GetSystemMetrics(SM_CXSCREEN);
  const int screenHeight = GetSystemMetrics(SM_CYSCREEN);
  MoveTo(screenWidth + 500, screenHeight + 300);
  ASSERT_EQ(Area().left, screenWidth + 500);
  Tell(WM_DISPLAYCHANGE, 32, MAKELPARAM(screenWidth, screenHeight));
  const RECT area = Area();
  EXPECT_GE(area.left, 0);
  EXPECT_GE(area.top, 0);
  EXPECT_LE(area.right, screenWidth);
  EXPECT_LE(area.bottom, screenHeight);
}

TEST_F(ShownWindow, StaysWhereItCanBeReachedWhenTheScreensChange) {
  MoveTo(120, 90);
  Tell(WM_DISPLAYCHANGE, 32,
       MAKELPARAM(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)));
  EXPECT_EQ(Area().left, 120);
  EXPECT_EQ(Area().top, 90);
}

}  // namespace
}  // namespace tarvo
