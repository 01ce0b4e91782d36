// The launcher on the desktop: start-up entry, icon, keyboard, texts, high contrast.
#include <windows.h>
// After windows.h, which it needs.
#include <commctrl.h>

#include "tests/operator/acceptance/desk.h"
#include "tests/operator/acceptance/stories.h"
#include "tests/operator/acceptance/tray.h"
#include "tests/operator/actions.h"
#include "tests/operator/layout.h"

namespace tarvo::acceptance {

void StartUpEntry(Desk& desk) {
  if (!MayWriteStartUpEntries()) throw Skipped("wants an administrator's rights");
  const std::string& name = desk.TheRoot().Name();
  desk.StartLauncher();
  Expect(!StartUpEntryOf(name), "there is an entry before the click");
  desk.Check("Check2");
  ExpectEqual(StartUpEntryOf(name).value_or("none"), desk.TheRoot().Path("tarvo-launcher.exe"),
              "the entry");
  desk.CloseLauncher();
  desk.StartLauncher();
  desk.ExpectChecked("Check2", -1, true);
  desk.Uncheck("Check2");
  Expect(!StartUpEntryOf(name), "the entry is still there");
  desk.CloseLauncher();
}

void TrayIcon(Desk& desk) {
  desk.StartLauncher();
  Await(seconds(15), "no icon in the notification area",
        [&] { return IconIsThere(desk.Window()); });
  desk.Minimize();
  desk.ExpectHidden();
  DoubleClickIcon(desk.Window());
  desk.ExpectShown();
  desk.Minimize();
  desk.ExpectHidden();
  OpenIconMenu(desk.Window());
  Expect(!IsWindowVisible(desk.Window()), "the menu alone showed the window");
  ChooseShow(desk.Window());
  desk.ExpectShown();
  const HWND icon = IconWindow(desk.Window());
  desk.CloseLauncher();
  Await(seconds(5), "the icon is still there", [&] { return !IconIsShown(icon); });
}

namespace {

void PressKeys(std::initializer_list<WORD> keys) {
  std::vector<INPUT> inputs;
  const auto add = [&](WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = flags;
    inputs.push_back(input);
  };
  for (const WORD key : keys) add(key, 0);
  for (auto key = std::rbegin(keys); key != std::rend(keys); ++key) add(*key, KEYEVENTF_KEYUP);
  SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

void NeedForeground(HWND launcher) {
  SetForegroundWindow(launcher);
  if (Holds(seconds(3), [&] { return GetForegroundWindow() == launcher; })) return;
  throw Skipped("the system does not let the window come to the front");
}

void ExpectPage(const Desk& desk, int page) {
  Await(seconds(5), "page " + std::to_string(page) + " is not reached",
        [&] { return ShownPage(desk.Window()) == page; });
}

}  // namespace

void PagesByKeyboard(Desk& desk) {
  desk.StartLauncher();
  desk.Page(1);
  NeedForeground(desk.Window());
  const auto pages =
      static_cast<int>(Send(NeedControl(desk.Window(), "SSTab1", -1).window, TCM_GETITEMCOUNT));
  for (int page = 2; page <= pages; ++page) {
    PressKeys({VK_CONTROL, VK_TAB});
    ExpectPage(desk, page);
  }
  for (int page = pages - 1; page >= 1; --page) {
    PressKeys({VK_CONTROL, VK_PRIOR});
    ExpectPage(desk, page);
  }
  desk.CloseLauncher();
}

void TextsWhole(Desk& desk) {
  desk.StartLauncher();
  std::string faults;
  for (const std::string& fault : LayoutFaults(desk.Window())) faults += "\r\n" + fault;
  Expect(faults.empty(), "the layout has faults:" + faults);
  desk.CloseLauncher();
}

namespace {

bool HighContrastIsOn() {
  HIGHCONTRASTA contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

BOOL CALLBACK TakeWarning(HWND window, LPARAM found) {
  if (!IsWindowVisible(window) || !TextOf(window).starts_with("Caution!")) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

/// The ground of the page's warning, which is coloured otherwise.
COLORREF GroundOfWarning(HWND launcher) {
  HWND warning = nullptr;
  EnumChildWindows(launcher, TakeWarning, reinterpret_cast<LPARAM>(&warning));
  Expect(warning != nullptr, "no warning on the page");
  const HDC screen = GetDC(warning);
  const COLORREF colour = GetPixel(screen, 3, 3);
  ReleaseDC(warning, screen);
  return colour;
}

}  // namespace

void HighContrast(Desk& desk) {
  if (!HighContrastIsOn()) throw Skipped("high contrast is off");
  desk.StartLauncher();
  desk.Page(3);
  NeedForeground(desk.Window());
  Await(seconds(5), "the warning is not drawn in the system's colours",
        [&] { return GroundOfWarning(desk.Window()) == GetSysColor(COLOR_WINDOW); });
  desk.CloseLauncher();
}

}  // namespace tarvo::acceptance
