#include "platform/windows/notification_area_windows.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <vector>

#include "desktop/status_picture.h"
#include "platform/windows/code_page_windows.h"
#include "platform/windows/icons_windows.h"
#include "platform/windows/notification_record.h"

namespace tarvo {
namespace {

constexpr char kTitle[] = "Sys Tray Interface";

HWND HiddenWindow() {
  for (HWND window = nullptr;
       (window = FindWindowExA(nullptr, window, nullptr, kTitle)) != nullptr;) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == GetCurrentProcessId()) return window;
  }
  return nullptr;
}

void HandleMessages() {
  MSG message{};
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
}

AlarmStates StatesOf(int number) {
  return {{static_cast<AlarmState>(number % 3), static_cast<AlarmState>(number / 3 % 3),
           static_cast<AlarmState>(number / 9 % 3)}};
}

class WindowsNotificationAreaTest : public testing::Test {
 protected:
  WindowsNotificationAreaTest() {
    area.onMouseMessage = [this](std::uint32_t message) { mouse.push_back(message); };
    area.onShellRestarted = [this] { ++restarts; };
  }

  WindowsNotificationArea area;
  std::vector<std::uint32_t> mouse;
  int restarts = 0;
};

TEST_F(WindowsNotificationAreaTest, TheWindowIsHiddenTopLevelAndGoesWhenItIsClosed) {
  EXPECT_EQ(HiddenWindow(), nullptr);
  area.OpenWindow(kTitle);
  const HWND window = HiddenWindow();
  ASSERT_NE(window, nullptr);
  EXPECT_FALSE(IsWindowVisible(window));
  EXPECT_EQ(GetParent(window), nullptr);
  area.CloseWindow();
  EXPECT_FALSE(IsWindow(window));
}

TEST_F(WindowsNotificationAreaTest, TheMouseMessageIsTheLowWordOfTheCallbacksDetail) {
  area.OpenWindow(kTitle);
  for (LPARAM detail : {512, 513, 515, 516, 0x00070203, 0xFFFF}) {
    PostMessageA(HiddenWindow(), 512, 1, detail);
  }
  HandleMessages();
  EXPECT_EQ(mouse, (std::vector<std::uint32_t>{512, 513, 515, 516, 515, 0xFFFF}));
}

TEST_F(WindowsNotificationAreaTest, OtherMessagesAreNoneOfItsBusiness) {
  area.OpenWindow(kTitle);
  for (const UINT message : {0x0203U, 0x0400U, 0x0401U}) {
    SendMessageA(HiddenWindow(), message, 1, 515);
  }
  EXPECT_TRUE(mouse.empty());
  EXPECT_EQ(restarts, 0);
}

TEST_F(WindowsNotificationAreaTest, TellsWhetherTheShellHasTheIcon) {
  area.OpenWindow(kTitle);
  EXPECT_FALSE(area.Modify({0, "tip"})) << "it was never added";
  if (!FindWindowA("Shell_TrayWnd", nullptr)) GTEST_SKIP() << "there is no notification area";
  ASSERT_TRUE(area.Add({0, "tip"}));
  EXPECT_TRUE(area.Modify({0, "other"}));
  EXPECT_FALSE(area.Add({0, "tip"})) << "it is there already";
  area.Delete();
  EXPECT_FALSE(area.Modify({0, "tip"}));
}

TEST_F(WindowsNotificationAreaTest, HearsThatTheShellWasStartedAgain) {
  area.OpenWindow(kTitle);
  PostMessageA(HWND_BROADCAST, RegisterWindowMessageA("TaskbarCreated"), 0, 0);
  HandleMessages();
  EXPECT_EQ(restarts, 1);
}

TEST_F(WindowsNotificationAreaTest, CallsInAnyOrderAreHarmless) {
  area.Modify({0, "no window"});
  area.Delete();
  area.CloseWindow();
  EXPECT_FALSE(area.ShowMenu({{"&Show", true, true}}));
  area.OpenWindow(kTitle);
  area.OpenWindow(kTitle);
  area.Add({0, std::string(kLongestTip, 'x')});
  area.Delete();
  area.Delete();
  area.CloseWindow();
  EXPECT_EQ(HiddenWindow(), nullptr);
}

TEST_F(WindowsNotificationAreaTest, ItsEndTakesTheWindowAlong) {
  {
    WindowsNotificationArea other;
    other.OpenWindow(kTitle);
    other.Add({0, "tip"});
    ASSERT_NE(HiddenWindow(), nullptr);
  }
  EXPECT_EQ(HiddenWindow(), nullptr);
}

/// Does one thing as soon as a menu is up.
std::function<void(HWND)> onMenu;
void CALLBACK LookForMenu(HWND, UINT, UINT_PTR timer, DWORD) {
  const HWND menu = FindWindowA("#32768", nullptr);
  if (!menu || !IsWindowVisible(menu)) return;
  KillTimer(nullptr, timer);
  onMenu(menu);
}

TEST_F(WindowsNotificationAreaTest, TheMenuReportsTheChosenEntry) {
  area.OpenWindow(kTitle);
  onMenu = [](HWND menu) {
    PostMessageA(menu, WM_KEYDOWN, VK_DOWN, 0);
    PostMessageA(menu, WM_KEYDOWN, VK_DOWN, 0);
    PostMessageA(menu, WM_KEYDOWN, VK_RETURN, 0);
  };
  SetTimer(nullptr, 0, 20, LookForMenu);
  EXPECT_EQ(area.ShowMenu({{"&Show", true, true}, {"&Other"}}), std::optional<std::size_t>(1));
}

TEST_F(WindowsNotificationAreaTest, ClosingTheWindowEndsTheMenu) {
  area.OpenWindow(kTitle);
  onMenu = [this](HWND) { area.CloseWindow(); };
  SetTimer(nullptr, 0, 20, LookForMenu);
  EXPECT_FALSE(area.ShowMenu({{"&Show", true, true}}));
  EXPECT_EQ(HiddenWindow(), nullptr);
}

TEST_F(WindowsNotificationAreaTest, ASecondMenuIsNotShownOverTheFirst) {
  area.OpenWindow(kTitle);
  bool secondShown = true;
  onMenu = [&](HWND) {
    secondShown = area.ShowMenu({{"&Other"}}).has_value();
    EndMenu();
  };
  SetTimer(nullptr, 0, 20, LookForMenu);
  EXPECT_FALSE(area.ShowMenu({{"&Show", true, true}}));
  EXPECT_FALSE(secondShown);
}

TEST(WindowsIconsTest, TheSizeIsOneThatIconsCanHave) {
  const int size = WindowsIcons().NotificationSize();
  EXPECT_GE(size, 16);
  EXPECT_LE(size, 128);
}

TEST(WindowsIconsTest, AnIconHasThePicturesSizeAndColours) {
  WindowsIcons icons;
  Picture picture{16, std::vector<std::uint32_t>(16 * 16, 0xFF00FF00)};
  picture.pixels[0] = 0xFFFF0000;
  const IconHandle icon = icons.Create(picture);
  ASSERT_NE(icon, 0);
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, 16, 16);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  DrawIconEx(memory, 0, 0, reinterpret_cast<HICON>(icon), 16, 16, 0, nullptr, DI_NORMAL);
  EXPECT_EQ(GetPixel(memory, 0, 0), RGB(255, 0, 0)) << "the left upper corner";
  EXPECT_EQ(GetPixel(memory, 1, 0), RGB(0, 255, 0));
  EXPECT_EQ(GetPixel(memory, 15, 15), RGB(0, 255, 0));
  SelectObject(memory, before);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  icons.Destroy(icon);
}

TEST(WindowsIconsTest, APictureOfNoSizeMakesNoIcon) {
  WindowsIcons icons;
  EXPECT_EQ(icons.Create({}), 0);
  icons.Destroy(0);
}

TEST(WindowsIconsTest, AThousandPictureChangesLeaveObjectsWhereTheyBegan) {
  WindowsNotificationArea area;
  area.OpenWindow(kTitle);
  area.Add({0, "tip"});
  WindowsIcons system;
  StatusIcons icons(system);
  for (int i = 0; i < 2; ++i) area.Modify({icons.For(StatesOf(i)), "tip"});
  const HANDLE self = GetCurrentProcess();
  const DWORD gdi = GetGuiResources(self, GR_GDIOBJECTS);
  const DWORD user = GetGuiResources(self, GR_USEROBJECTS);
  std::set<WORD> places;
  for (int i = 0; i < 1000; ++i) {
    const IconHandle icon = icons.For(StatesOf(i * 7));
    EXPECT_NE(icon, 0);
    places.insert(LOWORD(icon));
    area.Modify({icon, "tip"});
  }
  EXPECT_EQ(GetGuiResources(self, GR_GDIOBJECTS), gdi);
  EXPECT_EQ(GetGuiResources(self, GR_USEROBJECTS), user);
  // The counts above may say nothing under another system. The lower half of a handle is its place
  // in the table of all objects: few icons need few of them.
  EXPECT_LE(places.size(), 10U);
}

TEST(NotificationRecordTest, HoldsWhatTheShellOfTheFirstVersionTakes) {
  const auto window = reinterpret_cast<HWND>(std::uintptr_t{0x1234});
  const NOTIFYICONDATAA record = NotificationRecord(window, {0x77, "[Aurora] - caf\xE9"});
  EXPECT_EQ(record.cbSize, sizeof(void*) == 4 ? 88U : 104U);
  EXPECT_EQ(record.hWnd, window);
  EXPECT_EQ(record.uFlags, 7U);
  EXPECT_EQ(record.uCallbackMessage, 512U);
  EXPECT_EQ(record.hIcon, reinterpret_cast<HICON>(std::uintptr_t{0x77}));
  EXPECT_STREQ(record.szTip, "[Aurora] - caf\xE9");
}

TEST(NotificationRecordTest, EndsTheTipAfter63BytesAtMost) {
  for (const std::size_t length :
       {std::size_t{0}, std::size_t{62}, std::size_t{63}, std::size_t{64}, std::size_t{500}}) {
    const NOTIFYICONDATAA record = NotificationRecord(nullptr, {0, std::string(length, 'x')});
    EXPECT_EQ(std::string(record.szTip), std::string(std::min(length, kLongestTip), 'x')) << length;
  }
}

TEST(WindowsCodePageTest, AgreesWithTheSystem) {
  WindowsCodePage codePage;
  for (int byte = 0; byte < 256; ++byte) {
    const auto value = static_cast<unsigned char>(byte);
    EXPECT_EQ(codePage.IsLeadByte(value), IsDBCSLeadByte(value) != FALSE) << byte;
  }
  EXPECT_FALSE(codePage.IsLeadByte('A'));
}

TEST(WindowsCodePageTest, ALetterThatItDoesNotHaveDoesNotComeBack) {
  if (GetACP() != 1252) GTEST_SKIP() << "code page " << GetACP();
  EXPECT_EQ(TextOf(L"C:\\srv \u00D1"), "C:\\srv \xD1");
  EXPECT_EQ(WideTextOf("C:\\srv \xD1"), L"C:\\srv \u00D1");
  EXPECT_EQ(TextOf(L""), "");
  EXPECT_EQ(WideTextOf(""), L"");
  // The first has a letter that looks alike, which names another folder; the second has none.
  for (const wchar_t* path : {L"C:\\\u0101", L"C:\\\u0441"}) {
    EXPECT_NE(WideTextOf(TextOf(path)), path);
  }
}

TEST(WindowsCodePageTest, LowersEveryLetterOfTheCodePage) {
  WindowsCodePage codePage;
  EXPECT_EQ(codePage.Lowered(""), "");
  EXPECT_EQ(codePage.Lowered("LOGIN-Server.EXE 1_"), "login-server.exe 1_");
  if (GetACP() != 1252) GTEST_SKIP() << "code page " << GetACP();
  EXPECT_EQ(codePage.Lowered("\xC0\xD1\xDE\x8A\x9F"), "\xE0\xF1\xFE\x9A\xFF");
  EXPECT_EQ(codePage.Lowered("\xD7\xDF\xF1"), "\xD7\xDF\xF1");
}

TEST(WindowsCodePageTest, RaisesEveryLetterOfTheCodePage) {
  WindowsCodePage codePage;
  EXPECT_EQ(codePage.Raised(""), "");
  EXPECT_EQ(codePage.Raised("login-Server.exe 1_"), "LOGIN-SERVER.EXE 1_");
  if (GetACP() != 1252) GTEST_SKIP() << "code page " << GetACP();
  EXPECT_EQ(codePage.Raised("\xE0\xF1\xFE\x9A\xFF"), "\xC0\xD1\xDE\x8A\x9F");
  EXPECT_EQ(codePage.Raised("\xD7\xDF\xD1"), "\xD7\xDF\xD1");
}

TEST(WindowsCodePageTest, TellsItsLettersAsUtf8) {
  WindowsCodePage codePage;
  EXPECT_EQ(codePage.ToUtf8(""), "");
  EXPECT_EQ(codePage.ToUtf8("C:\\srv"), "C:\\srv");
  EXPECT_EQ(Utf8Of(L"\u00D1 \u20AC \U0001F600"), "\xC3\x91 \xE2\x82\xAC \xF0\x9F\x98\x80");
  if (GetACP() != 1252) GTEST_SKIP() << "code page " << GetACP();
  EXPECT_EQ(codePage.ToUtf8("\xD1 \x80"), "\xC3\x91 \xE2\x82\xAC");
}

TEST(WindowsCodePageTest, KnowsWhetherItsCharactersAreBytes) {
  bool anyLeadByte = false;
  for (int byte = 0; byte < 256; ++byte) {
    anyLeadByte = anyLeadByte || IsDBCSLeadByte(static_cast<BYTE>(byte)) != FALSE;
  }
  EXPECT_EQ(WindowsCodePage().HasOneByteCharacters(), !anyLeadByte && GetACP() != CP_UTF8);
}

}  // namespace
}  // namespace tarvo
