#include "form/windows/log_menu.h"

#include <richedit.h>
#include <windowsx.h>

namespace tarvo {
namespace {

void AddEntry(HMENU menu, LogCommand command, const char* caption, bool enabled = true) {
  AppendMenuA(menu, enabled ? MF_STRING : MF_STRING | MF_GRAYED, static_cast<UINT_PTR>(command),
              caption);
}

}  // namespace

LogCommand AskLogMenu(HWND log, LPARAM place) {
  POINT at{GET_X_LPARAM(place), GET_Y_LPARAM(place)};
  if (place == -1) {  // By the keyboard.
    at = {0, 0};
    ClientToScreen(log, &at);
  }
  CHARRANGE selection{};
  SendMessageA(log, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection));
  const HMENU menu = CreatePopupMenu();
  AddEntry(menu, LogCommand::Copy, "&Copy\tCtrl+C", selection.cpMin != selection.cpMax);
  AddEntry(menu, LogCommand::SelectAll, "Select &all\tCtrl+A");
  AddEntry(menu, LogCommand::Find, "&Find...\tCtrl+F");
  AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
  AddEntry(menu, LogCommand::OpenFile, "&Open today's log file");
  const int chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, at.x,
                                    at.y, 0, log, nullptr);
  DestroyMenu(menu);
  return static_cast<LogCommand>(chosen);
}

}  // namespace tarvo
