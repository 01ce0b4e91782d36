#include "platform/windows/file_dialog_windows.h"

#include <gtest/gtest.h>
#include <windows.h>
// After windows.h, which it needs.
#include <dlgs.h>

#include "tests/windows/test_folder.h"

namespace tarvo {
namespace {

/// What the operator types into the dialog's name box, and what stood there before.
struct Operator {
  std::string types;
  bool cancels = false;
  std::string stood;
  int ticks = 0;
};
Operator* current = nullptr;

HWND NameBoxOf(HWND dialog) {
  const HWND combo = GetDlgItem(dialog, cmb13);
  if (combo == nullptr) return GetDlgItem(dialog, edt1);
  const HWND edit = FindWindowExA(combo, nullptr, "Edit", nullptr);
  if (edit != nullptr) return edit;
  const HWND inner = FindWindowExA(combo, nullptr, "ComboBox", nullptr);
  return FindWindowExA(inner, nullptr, "Edit", nullptr);
}

HWND OpenDialogOfThisProcess() {
  for (HWND window = FindWindowA("#32770", nullptr); window != nullptr;
       window = GetWindow(window, GW_HWNDNEXT)) {
    char name[32] = {};
    GetClassNameA(window, name, sizeof(name));
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    const bool mine = process == GetCurrentProcessId() && std::string(name) == "#32770";
    if (mine && IsWindowVisible(window) != 0 && GetDlgItem(window, IDOK) != nullptr) return window;
  }
  return nullptr;
}

void CALLBACK Operate(HWND, UINT, UINT_PTR timer, DWORD) {
  const HWND dialog = OpenDialogOfThisProcess();
  // A moment later, so that the dialog has filled its boxes.
  if (dialog == nullptr || ++current->ticks < 5) return;
  KillTimer(nullptr, timer);
  const HWND box = NameBoxOf(dialog);
  char text[1024] = {};
  SendMessageA(box, WM_GETTEXT, sizeof(text), reinterpret_cast<LPARAM>(text));
  current->stood = text;
  if (!current->types.empty()) {
    SendMessageA(box, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(current->types.c_str()));
  }
  PostMessageA(dialog, WM_COMMAND, current->cancels ? IDCANCEL : IDOK, 0);
}

class WindowsFileDialogTest : public testing::Test {
 protected:
  std::string AskAnd(const std::string& initialName, const std::string& types, bool cancels) {
    operator_ = {};
    operator_.types = types;
    operator_.cancels = cancels;
    current = &operator_;
    SetTimer(nullptr, 0, 30, &Operate);
    return dialog_.AskForFile({"Executables (*.exe)", "*.exe", initialName});
  }

  test::TestFolder folder_;
  WindowsFileDialog dialog_;
  Operator operator_;
};

TEST_F(WindowsFileDialogTest, GivesTheFullPathOfTheChosenFileAndLeavesTheCurrentFolder) {
  const std::string other = folder_.MakeFolder("other");
  const std::string path = folder_.Write("other\\map-server.exe", "MZ");
  char before[MAX_PATH] = {};
  GetCurrentDirectoryA(MAX_PATH, before);
  EXPECT_EQ(AskAnd("", path, false), path);
  char after[MAX_PATH] = {};
  GetCurrentDirectoryA(MAX_PATH, after);
  EXPECT_STREQ(after, before);
}

TEST_F(WindowsFileDialogTest, CancellingGivesNothing) {
  const std::string path = folder_.Write("map-server.exe", "MZ");
  EXPECT_EQ(AskAnd(path, "", true), "");
}

TEST_F(WindowsFileDialogTest, BeginsWithTheInitialNameAndTakesIt) {
  const std::string path = folder_.Write("map-server.exe", "MZ");
  EXPECT_EQ(AskAnd(path, "", false), path);
  EXPECT_EQ(operator_.stood, "map-server.exe");
}

TEST_F(WindowsFileDialogTest, ANameThatIsNoPathIsPassedOver) {
  const std::string path = folder_.Write("map-server.exe", "MZ");
  EXPECT_EQ(AskAnd("<no|name>?", path, false), path);
  EXPECT_EQ(AskAnd(std::string(40000, 'x'), path, false), path);
}

}  // namespace
}  // namespace tarvo
