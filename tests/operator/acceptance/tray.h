#pragma once

#include <windows.h>

namespace tarvo::acceptance {

/// The window to which the shell tells what is done to the launcher's icon.
HWND IconWindow(HWND launcher);

/// Whether the shell shows an icon of that window. Wine does not tell: there it is whether it shows
/// any.
bool IconIsShown(HWND iconWindow);
bool IconIsThere(HWND launcher);

/// The icon may lie where no mouse reaches it, below the arrow or a full screen; so the launcher is
/// told what the shell tells it at each of these.
void DoubleClickIcon(HWND launcher);
/// Until the menu is to be seen.
void OpenIconMenu(HWND launcher);
/// Its first entry, by the keyboard.
void ChooseShow(HWND launcher);

}  // namespace tarvo::acceptance
