#pragma once

#include <windows.h>

#include <map>
#include <optional>
#include <stdexcept>
#include <string>

#include "form/control_ids.h"

namespace tarvo {

/// What a person would have said about a thing that cannot be done; ends the operator with code 1.
class OperatorError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Which launcher is meant when several run: by its process, by the folder of its executable, or
/// the only one.
struct LauncherChoice {
  DWORD pid = 0;
  std::string root;

  bool Fits(DWORD candidate) const;
};

/// The main window of the chosen launcher, hidden or not; nullptr when there is none. More than one
/// that fits is an error.
HWND FindLauncher(const LauncherChoice& choice);
/// The same with all its controls, which are made with its first messages; none is an error too.
HWND NeedLauncher(const LauncherChoice& choice);

DWORD ProcessOf(HWND window);
std::string ClassOf(HWND window);

/// Milliseconds that a launcher that is busy is waited for.
inline constexpr UINT kPatience = 30000;
/// Milliseconds between two looks at what is waited for.
inline constexpr DWORD kPoll = 30;

/// One control of the form, found on the running launcher's window.
struct FoundControl {
  const ControlId* entry;
  int index;
  HWND window;
};

/// A control of an entry, at an index that the entry has; nothing when the window does not have it.
std::optional<FoundControl> FindControl(HWND launcher, const ControlId& entry, int index);

/// The windows of all controls, by their ids.
std::map<int, HWND> ControlWindows(HWND launcher);

/// Finds a control by name and index, -1 for an index left out. Unknown names, an index that is
/// missing or out of range, and a control that the window does not have are errors.
FoundControl NeedControl(HWND launcher, const std::string& name, int index);

/// Name and index as they are written in scripts.
std::string NameOf(const FoundControl& control);

/// Sends a message that carries nothing away but its answer. A launcher that does not answer
/// within 30 seconds is an error.
LRESULT Send(HWND window, UINT message, WPARAM w = 0, LPARAM l = 0);
LRESULT SendWide(HWND window, UINT message, WPARAM w, LPARAM l);

/// Sends a message whose handling may open a message box, and waits until it is through or a box
/// is up. The launcher may be gone after it.
void SendAndSettle(HWND launcher, HWND window, UINT message, WPARAM w, LPARAM l);

/// The text of any window of the launcher, whole.
std::string TextOf(HWND window);

}  // namespace tarvo
