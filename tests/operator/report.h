#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "launcher.h"

namespace tarvo {

/// Prints one line for the window and one for each control; see `operator help` for their form.
void PrintState(HWND launcher);
/// Prints the line for the window alone.
void PrintWindowState(HWND launcher);
/// Prints the lines for the controls of that name, or with an index from 0 for that one; none for a
/// name that no control has.
void PrintControlState(HWND launcher, const std::string& name, int index = -1);

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
