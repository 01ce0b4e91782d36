#include "file_dialog.h"

#include <windows.h>
// After windows.h, which they need.
#include <dlgs.h>
#include <shlobj.h>

#include "actions.h"

namespace tarvo {
namespace {

constexpr DWORD kFilling = 300;  ///< Until a dialog that has just come up has filled its boxes.

/// The box for the file's name; nullptr for a dialog that has none, a message box for example.
HWND NameBoxOf(HWND dialog) {
  const HWND combo = GetDlgItem(dialog, cmb13);
  if (combo == nullptr) return GetDlgItem(dialog, edt1);
  const HWND inner = FindWindowExA(combo, nullptr, "ComboBox", nullptr);
  return FindWindowExA(inner ? inner : combo, nullptr, "Edit", nullptr);
}

HWND FindFileDialog(HWND launcher) {
  HWND window = nullptr;
  while ((window = FindWindowExA(nullptr, window, "#32770", nullptr)) != nullptr) {
    const bool its = ProcessOf(window) == ProcessOf(launcher);
    if (its && IsWindowVisible(window) && NameBoxOf(window)) return window;
  }
  return nullptr;
}

}  // namespace

HWND WaitForFileDialog(const LauncherChoice& choice, DWORD patience) {
  const DWORD start = GetTickCount();
  for (;;) {
    const HWND launcher = FindLauncher(choice);
    const HWND dialog = launcher ? FindFileDialog(launcher) : nullptr;
    if (dialog) {
      Sleep(kFilling);
      return dialog;
    }
    if (GetTickCount() - start >= patience) throw OperatorError("no file dialog is up");
    Sleep(kPoll);
  }
}

std::string NameIn(HWND dialog) { return TextOf(NameBoxOf(dialog)); }

void AnswerFileDialog(HWND dialog, const std::string& path) {
  if (!path.empty()) {
    Send(NameBoxOf(dialog), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(path.c_str()));
  }
  PostMessageA(dialog, WM_COMMAND, path.empty() ? IDCANCEL : IDOK, 0);
  for (int round = 0; round < 150; ++round) {
    if (!IsWindow(dialog)) return;
    Sleep(kPoll);
  }
  throw OperatorError("the file dialog does not go away");
}

void DropFile(HWND launcher, const FoundControl& control, const std::string& path) {
  NeedReach(launcher, control);
  std::string record(sizeof(DROPFILES), '\0');
  reinterpret_cast<DROPFILES*>(record.data())->pFiles = sizeof(DROPFILES);
  record += path + '\0' + '\0';
  const HANDLE process =
      OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_WRITE, FALSE, ProcessOf(control.window));
  // It is the launcher's from now on, as a dropped file's record always is.
  void* place = VirtualAllocEx(process, nullptr, record.size(), MEM_COMMIT, PAGE_READWRITE);
  if (place) WriteProcessMemory(process, place, record.data(), record.size(), nullptr);
  if (process) CloseHandle(process);
  if (!place) throw OperatorError("nothing can be dropped onto the launcher");
  SendAndSettle(launcher, control.window, WM_DROPFILES, reinterpret_cast<WPARAM>(place), 0);
}

}  // namespace tarvo
