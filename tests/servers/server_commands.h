#pragma once

#include <windows.h>

namespace tarvo::sample {

/// The class of the hidden top-level window that each sample server opens; its title is
/// "<role> server".
inline constexpr char kWindowClass[] = "TarvoSampleServer";

/// Messages that the window obeys. They may be posted or sent; a sent one returns 1 when what it
/// asks has been done, else 0.
inline constexpr UINT kCrash = WM_APP + 1;      ///< Ends at once with code 3, cleaning nothing up.
inline constexpr UINT kClosePort = WM_APP + 2;  ///< Goes on running, but its port is closed.
inline constexpr UINT kHang = WM_APP + 3;  ///< Goes on running; nobody accepts, the queue is full.
inline constexpr UINT kAnswer = WM_APP + 4;  ///< Listens and accepts (again).
inline constexpr UINT kShow = WM_APP + 5;
inline constexpr UINT kHide = WM_APP + 6;
inline constexpr UINT kDie = WM_APP + 7;    ///< Ends in good order with code 0.
inline constexpr UINT kState = WM_APP + 8;  ///< Returns a `PortState`.

/// Handles no message for wParam milliseconds, as a program does whose window has frozen; its port
/// goes on. Post it: a sent one comes back that much later.
inline constexpr UINT kBusy = WM_APP + 9;

/// Commits an access violation, and ends of it unless the system holds it open under an error
/// dialog.
inline constexpr UINT kFault = WM_APP + 10;
inline constexpr UINT kErrorMode = WM_APP + 11;  ///< Returns the error mode of the process.

/// What a server's port does. 0 is left for a window that gave no answer.
enum class PortState { Closed = 1, Answering = 2, Hanging = 3 };

/// Exit codes of a sample server besides 0.
inline constexpr int kExitConf = 2;      ///< No role, no conf file or no port in it.
inline constexpr int kExitCrash = 3;     ///< Crashed as it was told to.
inline constexpr int kExitPortBusy = 4;  ///< Another process listens at its port.

}  // namespace tarvo::sample
