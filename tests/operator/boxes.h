#pragma once

#include "launcher.h"

namespace tarvo {

/// The message box of the chosen launcher that is up, the topmost one; nullptr for none. A launcher
/// may show one before it has a main window.
HWND FindBox(const LauncherChoice& choice);

/// Waits for a box, so many milliseconds at most; none is an error.
HWND WaitForBox(const LauncherChoice& choice, DWORD patience);

/// Its message.
std::string MessageOf(HWND box);

/// Title, icon, buttons and text, a line each.
std::string WordsOf(HWND box);

/// Presses the button of that name ("yes", "no", "ok") and waits until the box is gone. A box
/// without such a button is an error.
void PressInBox(HWND box, const std::string& button);

}  // namespace tarvo
