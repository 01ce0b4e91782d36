#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "launcher.h"

namespace tarvo {

/// Prints one line for the window and one for each control; see `operator help` for their form.
void PrintState(HWND launcher);

/// The text that a person reads on a control; on a list that of the selected entry.
std::string ReadText(const FoundControl& control);

/// The tool tip that the control would show at this moment.
std::string ReadToolTip(HWND launcher, const FoundControl& control);

/// Waits until the control's text contains `part`; an error when it does not in time.
void WaitForText(const LauncherChoice& choice, const std::string& name, int index,
                 const std::string& part, DWORD patience);

/// Prints the lines of a control as they come, each once, until the time is over or the launcher
/// is gone.
void Follow(const LauncherChoice& choice, const std::string& name, int index, DWORD time);

}  // namespace tarvo
