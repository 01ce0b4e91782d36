#pragma once

#include "launcher.h"

namespace tarvo {

/// Waits for the launcher's file dialog, so many milliseconds at most. None is an error.
HWND WaitForFileDialog(const LauncherChoice& choice, DWORD patience);

/// The name that stands in it.
std::string NameIn(HWND dialog);

/// Types a path into the dialog and presses Open; an empty path presses Cancel. Waits until the
/// dialog is gone, which a name that the dialog refuses makes an error.
void AnswerFileDialog(HWND dialog, const std::string& path);

/// Drops a file onto a control that is in sight, or is brought there first.
void DropFile(HWND launcher, const FoundControl& control, const std::string& path);

}  // namespace tarvo
