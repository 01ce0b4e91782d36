#include "platform/windows/message_boxes_windows.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>

namespace tarvo {
namespace {

/// What the operator sees of a box, gathered while it stands.
struct Seen {
  bool shown = false;
  std::string title;
  bool hasYes = false;
  bool hasNo = false;
  bool hasOk = false;
  int defaultButton = 0;
  HWND owner = nullptr;
  bool topmost = false;
  bool toolWindow = false;  ///< Such a window has no button in the taskbar.
  bool hasIcon = false;
  HICON picture = nullptr;  ///< Beside the text.
};

/// The operator of one box: looks at it as soon as it stands, then does `act`.
struct Operator {
  Seen seen;
  std::function<void(HWND)> act;
};
Operator* current = nullptr;

/// The button that Enter presses; 0 when no button is drawn as the default.
int DefaultButtonOf(HWND box) {
  for (const int id : {IDYES, IDNO, IDOK, IDCANCEL}) {
    const HWND button = GetDlgItem(box, id);
    if (button == nullptr) continue;
    if ((GetWindowLongA(button, GWL_STYLE) & BS_TYPEMASK) == BS_DEFPUSHBUTTON) return id;
  }
  return 0;
}

BOOL CALLBACK TakePicture(HWND window, LPARAM argument) {
  const auto icon = reinterpret_cast<HICON>(SendMessageA(window, STM_GETICON, 0, 0));
  if (icon != nullptr) *reinterpret_cast<HICON*>(argument) = icon;
  return icon == nullptr;
}

void CALLBACK LookAtBox(HWND, UINT, UINT_PTR timer, DWORD) {
  const HWND box = FindWindowA("#32770", "Tarvo Launcher");
  if (box == nullptr) return;
  KillTimer(nullptr, timer);
  Seen& seen = current->seen;
  char title[100] = {};
  GetWindowTextA(box, title, sizeof(title));
  seen.shown = IsWindowVisible(box) != 0;
  seen.title = title;
  seen.hasYes = GetDlgItem(box, IDYES) != nullptr;
  seen.hasNo = GetDlgItem(box, IDNO) != nullptr;
  seen.hasOk = GetDlgItem(box, IDOK) != nullptr || GetDlgItem(box, IDCANCEL) != nullptr;
  seen.defaultButton = DefaultButtonOf(box);
  seen.owner = GetWindow(box, GW_OWNER);
  seen.topmost = (GetWindowLongA(box, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
  seen.toolWindow = (GetWindowLongA(box, GWL_EXSTYLE) & WS_EX_TOOLWINDOW) != 0;
  seen.hasIcon = SendMessageA(box, WM_GETICON, ICON_BIG, 0) != 0;
  EnumChildWindows(box, &TakePicture, reinterpret_cast<LPARAM>(&seen.picture));
  current->act(box);
}

class WindowsMessageBoxesTest : public testing::Test {
 protected:
  Answer AskAnd(const MessageBoxRequest& request, std::function<void(HWND)> act) {
    operator_ = {};
    operator_.act = std::move(act);
    current = &operator_;
    SetTimer(nullptr, 0, 20, &LookAtBox);
    return boxes_.Ask(request);
  }
  Answer AskAndPress(const MessageBoxRequest& request, int button) {
    return AskAnd(request,
                  [button](HWND box) { PostMessageA(box, WM_COMMAND, WPARAM(button), 0); });
  }

  WindowsMessageBoxes boxes_;
  Operator operator_;
};

TEST_F(WindowsMessageBoxesTest, AnOkBoxBearsTheTitleOfTheProgram) {
  EXPECT_EQ(AskAndPress({"Text", BoxIcon::Critical, BoxButtons::Ok, false}, IDOK), Answer::Ok);
  EXPECT_TRUE(operator_.seen.shown);
  EXPECT_EQ(operator_.seen.title, "Tarvo Launcher");
  EXPECT_TRUE(operator_.seen.hasOk);
  EXPECT_FALSE(operator_.seen.hasYes);
  EXPECT_FALSE(operator_.seen.hasNo);
}

TEST_F(WindowsMessageBoxesTest, EachIconIsTheSystems) {
  const std::pair<BoxIcon, LPCSTR> icons[] = {{BoxIcon::Critical, IDI_HAND},
                                              {BoxIcon::Exclamation, IDI_EXCLAMATION},
                                              {BoxIcon::Question, IDI_QUESTION},
                                              {BoxIcon::Information, IDI_ASTERISK}};
  for (const auto& [icon, name] : icons) {
    AskAndPress({"Text", icon, BoxButtons::Ok, false}, IDOK);
    EXPECT_EQ(operator_.seen.picture, LoadIconA(nullptr, name)) << static_cast<int>(icon);
  }
}

TEST_F(WindowsMessageBoxesTest, AQuestionIsAnsweredYesOrNo) {
  const MessageBoxRequest question{"Sure?", BoxIcon::Question, BoxButtons::YesNo, false};
  EXPECT_EQ(AskAndPress(question, IDYES), Answer::Yes);
  EXPECT_TRUE(operator_.seen.hasYes);
  EXPECT_TRUE(operator_.seen.hasNo);
  EXPECT_EQ(operator_.seen.defaultButton, IDYES);
  EXPECT_EQ(AskAndPress(question, IDNO), Answer::No);
}

TEST_F(WindowsMessageBoxesTest, NoCanBeTheDefault) {
  const MessageBoxRequest question{"Sure?", BoxIcon::Exclamation, BoxButtons::YesNo, true};
  EXPECT_EQ(AskAndPress(question, IDNO), Answer::No);
  EXPECT_EQ(operator_.seen.defaultButton, IDNO);
}

TEST_F(WindowsMessageBoxesTest, ABoxThatTheEndOfTheProgramClosesAnswersNoOrOk) {
  const auto quit = [](HWND) { PostQuitMessage(0); };
  const auto forgetQuit = [] {
    MSG message{};
    return PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) != 0;
  };
  EXPECT_EQ(AskAnd({"Sure?", BoxIcon::Question, BoxButtons::YesNo, false}, quit), Answer::No);
  EXPECT_TRUE(forgetQuit()) << "the loop behind the box must hear of it too";
  EXPECT_EQ(AskAnd({"Text", BoxIcon::Information, BoxButtons::Ok, false}, quit), Answer::Ok);
  EXPECT_TRUE(forgetQuit());
}

TEST_F(WindowsMessageBoxesTest, ABoxBelongsToTheOwnerWindow) {
  const HWND owner = CreateWindowExA(0, "STATIC", "owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                                     300, 200, nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(owner, nullptr);
  boxes_.SetOwner(reinterpret_cast<std::intptr_t>(owner));
  bool ownerBlocked = false;
  AskAnd({"Text", BoxIcon::Exclamation, BoxButtons::Ok, false}, [&](HWND box) {
    ownerBlocked = IsWindowEnabled(owner) == 0;
    PostMessageA(box, WM_COMMAND, IDOK, 0);
  });
  EXPECT_EQ(operator_.seen.owner, owner);
  EXPECT_TRUE(ownerBlocked);
  EXPECT_NE(IsWindowEnabled(owner), 0);
  EXPECT_FALSE(operator_.seen.topmost);
  DestroyWindow(owner);
}

// The box of a launcher in the notification area lay behind all windows, and the taskbar showed no
// sign of it.
TEST_F(WindowsMessageBoxesTest, ABoxOfAHiddenOwnerStandsInFrontAndInTheTaskbar) {
  WNDCLASSA looks{};
  looks.lpfnWndProc = DefWindowProcA;
  looks.lpszClassName = "HiddenOwner";
  looks.hIcon = LoadIconA(nullptr, IDI_APPLICATION);
  RegisterClassA(&looks);
  const HWND owner = CreateWindowExA(0, "HiddenOwner", "owner", WS_OVERLAPPEDWINDOW, 0, 0, 300, 200,
                                     nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(owner, nullptr);
  boxes_.SetOwner(reinterpret_cast<std::intptr_t>(owner));
  bool ownerBlocked = false;
  AskAnd({"Text", BoxIcon::Critical, BoxButtons::Ok, false}, [&](HWND box) {
    ownerBlocked = IsWindowEnabled(owner) == 0;
    PostMessageA(box, WM_COMMAND, IDOK, 0);
  });
  EXPECT_TRUE(operator_.seen.shown);
  EXPECT_EQ(operator_.seen.owner, nullptr);
  EXPECT_TRUE(operator_.seen.topmost);
  EXPECT_FALSE(operator_.seen.toolWindow);
  EXPECT_TRUE(operator_.seen.hasIcon);
  EXPECT_TRUE(ownerBlocked);
  EXPECT_NE(IsWindowEnabled(owner), 0);
  DestroyWindow(owner);
}

}  // namespace
}  // namespace tarvo
