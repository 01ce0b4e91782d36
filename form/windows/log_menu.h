#pragma once

#include <windows.h>

namespace tarvo {

enum class LogCommand { None, Copy, SelectAll, Find, OpenFile };

/// Shows the menu of the log's window and returns what the operator has chosen. `place` is that of
/// WM_CONTEXTMENU.
LogCommand AskLogMenu(HWND log, LPARAM place);

}  // namespace tarvo
