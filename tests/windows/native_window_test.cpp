#include "form/windows/native_window.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "form/control_ids.h"
#include "form/log_screen.h"
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
  static std::string TextOf(HWND control) {
    std::string text(static_cast<std::size_t>(GetWindowTextLengthA(control)) + 1, '\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextA(control, text.data(), static_cast<int>(text.size()))));
    return text;
  }
  /// The native control of that name.
  HWND Control(std::string_view name) const {
    Search search{FindControlId(name)->firstId, nullptr};
    EnumChildWindows(Window(), StopAtId, reinterpret_cast<LPARAM>(&search));
    return search.found;
  }

  WindowsTickClock clock_;
  TimerQueue timers_{clock_};
  Form form_{timers_};

 private:
  struct Search {
    int id;
    HWND found;
  };
  static BOOL CALLBACK StopAtId(HWND window, LPARAM argument) {
    auto& search = *reinterpret_cast<Search*>(argument);
    if (GetDlgCtrlID(window) != search.id) return TRUE;
    search.found = window;
    return FALSE;
  }

  EventDispatch dispatch_;
  NativeWindow window_{form_, timers_, dispatch_};
};

BOOL CALLBACK CountPanel(HWND window, LPARAM argument) {
  char name[32] = "";
  GetClassNameA(window, name, sizeof name);
  if (std::string_view(name) == "TarvoPanel") ++*reinterpret_cast<int*>(argument);
  return TRUE;
}

int PanelsIn(HWND window) {
  int count = 0;
  EnumChildWindows(window, CountPanel, reinterpret_cast<LPARAM>(&count));
  return count;
}

// All of them in one would keep the window from answering just when it has come up.
TEST(StartedWindow, MakesThePagesOneInEachMessage) {
  constexpr int kPages = 4;
  WindowsTickClock clock;
  TimerQueue timers{clock};
  Form form{timers};
  EventDispatch dispatch;
  NativeWindow native{form, timers, dispatch};
  const HWND window = reinterpret_cast<HWND>(native.Handle());
  const int around = PanelsIn(window);
  int panels = around;
  int completed = 0;
  form.frame.onComplete = [&] {
    ++completed;
    EXPECT_EQ(PanelsIn(window), around + kPages);
  };
  MSG message{};
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    DispatchMessageA(&message);
    const int now = PanelsIn(window);
    EXPECT_LE(now, panels + 1);
    panels = now;
  }
  EXPECT_EQ(panels, around + kPages);
  EXPECT_EQ(completed, 1);
}

TEST_F(ShownWindow, IsAskedForTheEndOfTheSessionBeforeTheServers) {
  DWORD level = 0;
  DWORD flags = 0;
  ASSERT_NE(GetProcessShutdownParameters(&level, &flags), 0);
  EXPECT_EQ(level, 0x3FFu);
}

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

TEST_F(ShownWindow, AMoveBackFromAScreenThatIsGoneIsNotTheOperators) {
  MoveTo(GetSystemMetrics(SM_CXSCREEN) + 500, 30);
  const auto moved = form_.frame.window.Standing();
  ASSERT_TRUE(moved);
  Tell(WM_DISPLAYCHANGE, 32, 0);
  EXPECT_LT(Area().left, moved->left);
  EXPECT_EQ(form_.frame.window.Standing(), moved);
}

TEST(WindowToBeShown, KeepsAPlaceInMindThatIsOutOfReachNow) {
  const Place away{30000, 30000, 900, 700};
  WindowsTickClock clock;
  TimerQueue timers{clock};
  Form form{timers};
  EventDispatch dispatch;
  const NativeWindow window{form, timers, dispatch};
  form.frame.window.SetStanding(away);
  form.frame.window.SetVisible(true);
  MSG message{};
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
  EXPECT_EQ(form.frame.window.Standing(), away);
}

TEST_F(ShownWindow, StaysWhereItCanBeReachedWhenTheScreensChange) {
  MoveTo(120, 90);
  Tell(WM_DISPLAYCHANGE, 32,
       MAKELPARAM(GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)));
  EXPECT_EQ(Area().left, 120);
  EXPECT_EQ(Area().top, 90);
}

TEST_F(ShownWindow, TellsAFieldOfTheFocusThatMovesInTheWindowAlone) {
  form_.frame.SSTab1.SetPage(2);
  HandleMessages();
  std::string told;
  form_.randomizer.rIni.onGotFocus = [&] { told += "in "; };
  form_.randomizer.rIni.onLostFocus = [&] { told += "out "; };
  // No message is handled from here on: the screen's own activation would move the focus.
  const HWND field = Control("rIni");
  const HWND other = CreateWindowExA(0, "STATIC", "another program's", WS_POPUP | WS_VISIBLE, 0, 0,
                                     50, 50, nullptr, nullptr, nullptr, nullptr);
  SetFocus(field);
  ASSERT_EQ(GetFocus(), field);
  EXPECT_EQ(told, "in ");
  SetFocus(other);
  ASSERT_EQ(GetFocus(), other);
  EXPECT_EQ(told, "in ") << "what is half typed would be rewritten";
  SetFocus(field);
  EXPECT_EQ(told, "in ") << "nor is it selected, to be typed over";
  SetFocus(Control("rEnd"));
  EXPECT_EQ(told, "in out ");
  DestroyWindow(other);
}

// A letter that a code page would make another one of, or a question mark, is none that a filter
// knows.
TEST_F(ShownWindow, TellsAFieldOfKeysAsTheyAreTyped) {
  form_.frame.SSTab1.SetPage(2);
  HandleMessages();
  std::vector<char> keys;
  form_.randomizer.rIni.onKeyPress = [&](char key) {
    keys.push_back(key);
    return false;
  };
  constexpr WPARAM kTyped[] = {u'7', u'\u4E37',
                               u'\u0142'};  // The second one's low byte is that of "7".
  for (const WPARAM key : kTyped) SendMessageW(Control("rIni"), WM_CHAR, key, 0);
  EXPECT_EQ(keys, (std::vector<char>{'7', TextBox::kOtherCharacter, TextBox::kOtherCharacter}));
  EXPECT_EQ(form_.randomizer.rIni.Text(), "");
}

// The system tells of a list's closing before it tells of the choice by mouse that closed it.
TEST_F(ShownWindow, AChoiceByMouseFromADropDownListActsOnce) {
  form_.servers.Exes[ComponentKind::Char].AddItems({"one", "two", "three"});
  form_.frame.SSTab1.SetPage(1);
  HandleMessages();
  int chosen = 0;
  form_.servers.Exes[ComponentKind::Char].onSelect = [&] { ++chosen; };
  const HWND list = GetDlgItem(GetParent(Control("Exes")), FindControlId("Exes")->firstId + 1);
  SendMessageA(list, CB_SHOWDROPDOWN, TRUE, 0);
  COMBOBOXINFO info{};
  info.cbSize = sizeof info;
  ASSERT_TRUE(GetComboBoxInfo(list, &info));
  RECT entry{};
  SendMessageA(info.hwndList, LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&entry));
  const LPARAM place = MAKELPARAM(entry.left + 5, (entry.top + entry.bottom) / 2);
  SendMessageA(info.hwndList, WM_MOUSEMOVE, 0, place);
  SendMessageA(info.hwndList, WM_LBUTTONDOWN, MK_LBUTTON, place);
  SendMessageA(info.hwndList, WM_LBUTTONUP, 0, place);
  HandleMessages();
  EXPECT_EQ(SendMessageA(list, CB_GETDROPPEDSTATE, 0, 0), FALSE);
  EXPECT_EQ(form_.servers.Exes[ComponentKind::Char].Text(), "two");
  EXPECT_EQ(chosen, 1);
}

TEST_F(ShownWindow, DoesNotRefuseTheEndOfTheSessionAndTellsBothMessages) {
  std::string told;
  MainWindow& window = form_.frame.window;
  window.onSessionMayEnd = [&] { told += "asked "; };
  window.onSessionGoesOn = [&] { told += "off "; };
  window.onEndSession = [&] { told += "ends "; };
  EXPECT_EQ(SendMessageA(Window(), WM_QUERYENDSESSION, 0, 0), TRUE);
  SendMessageA(Window(), WM_ENDSESSION, FALSE, 0);
  // A service program that has to replace a file asks in the same way.
  constexpr LPARAM kCloseForUpdate = 1;
  EXPECT_EQ(SendMessageA(Window(), WM_QUERYENDSESSION, 0, kCloseForUpdate), TRUE);
  SendMessageA(Window(), WM_ENDSESSION, TRUE, kCloseForUpdate);
  EXPECT_EQ(told, "asked off asked ends ");
}

TEST_F(ShownWindow, TakesAQuestionThatNothingFollowsForCalledOff) {
  constexpr UINT_PTR kSessionTimer = 2;
  const auto timerRuns = [this] { return KillTimer(Window(), kSessionTimer) != FALSE; };
  std::string told;
  form_.frame.window.onSessionMayEnd = [&] { told += "asked "; };
  form_.frame.window.onSessionGoesOn = [&] { told += "off "; };
  SendMessageA(Window(), WM_QUERYENDSESSION, 0, 0);
  EXPECT_TRUE(timerRuns());
  SendMessageA(Window(), WM_TIMER, kSessionTimer, 0);
  EXPECT_EQ(told, "asked off ");
  SendMessageA(Window(), WM_QUERYENDSESSION, 0, 0);
  SendMessageA(Window(), WM_ENDSESSION, FALSE, 0);
  EXPECT_FALSE(timerRuns());
}

std::vector<std::string> ManyLines(int count) {
  std::vector<std::string> lines;
  for (int i = 0; i < count; ++i) lines.push_back("setting_" + std::to_string(i) + ":1 to 2");
  return lines;
}

TEST_F(ShownWindow, AListKeepsItsPlaceWhenAnEntryGoesOrAllAreListedAnew) {
  for (const char* name : {"lstRnd", "lstDTRands"}) {
    ListBox& list =
        name == std::string("lstRnd") ? form_.randomizer.lstRnd : form_.randomizer.lstDTRands;
    list.SetItems(ManyLines(60));
    const HWND window = Control(name);
    ASSERT_NE(window, nullptr) << name;
    ASSERT_EQ(SendMessageA(window, LB_GETCOUNT, 0, 0), 60) << name;
    SendMessageA(window, LB_SETTOPINDEX, 20, 0);
    ASSERT_EQ(SendMessageA(window, LB_GETTOPINDEX, 0, 0), 20) << name;
    list.SetItems(ManyLines(59));
    EXPECT_EQ(SendMessageA(window, LB_GETCOUNT, 0, 0), 59) << name;
    EXPECT_EQ(SendMessageA(window, LB_GETTOPINDEX, 0, 0), 20) << name;
    list.RemoveItem(22);
    EXPECT_EQ(SendMessageA(window, LB_GETCOUNT, 0, 0), 58) << name;
    EXPECT_EQ(SendMessageA(window, LB_GETTOPINDEX, 0, 0), 20) << name;
    EXPECT_EQ(SendMessageA(window, LB_GETCURSEL, 0, 0), LB_ERR) << name;
  }
}

TEST_F(ShownWindow, TheLogOnTheScreenDropsTheLinesThatTheViewDropped) {
  RichTextView& log = form_.status.RTLog;
  std::size_t longest = 0;
  for (int line = 1; line <= 600; ++line) {
    ShowLine(log, {kInfo,
                   {{LogInk::Stamp, "2026-11-22 10:00:00: "},
                    {LogInk::Info, "Login Server Started! " + std::to_string(line)}}});
    longest = std::max(longest, log.Text().size());
    if (line % 50 != 0) continue;
    EXPECT_EQ(TextOf(Control("RTLog")), log.Text()) << line;
  }
  EXPECT_LT(log.Text().size(), longest);
}

}  // namespace
}  // namespace tarvo
