// Stands in for the desktop's notification area and sees every picture as soon as the launcher
// shows it, while it follows the launcher's log file, which gets a line in the very event that sets
// a server's alarm state:
//
//   picture-watch ROUNDS LOG TEXT     until the log has got ROUNDS lines with that text
//
// Prints, for each line, the milliseconds until the picture is another one, and at the end "gap"
// with the longest time between two status ticks: each of them tells the area its picture anew.

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "benches/windows/desktop/stopwatch.h"
#include "benches/windows/desktop/tail.h"

namespace tarvo {
namespace {

constexpr char kAreaClass[] = "Shell_TrayWnd";

struct Watch {
  std::string shown;      ///< All that the launcher has told of its icon.
  double changed = 0;     ///< When that became another.
  double told = 0;        ///< When it was told last.
  double longestGap = 0;  ///< Between two times.
  int changes = 0;
} watch;

void Told(const COPYDATASTRUCT& record) {
  const double now = Now();
  const std::string bytes(static_cast<const char*>(record.lpData), record.cbData);
  if (watch.told != 0) watch.longestGap = std::max(watch.longestGap, now - watch.told);
  watch.told = now;
  if (bytes == watch.shown) return;
  watch.shown = bytes;
  watch.changed = now;
  ++watch.changes;
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l) {
  if (message != WM_COPYDATA) return DefWindowProcA(window, message, w, l);
  Told(*reinterpret_cast<const COPYDATASTRUCT*>(l));
  return TRUE;
}

/// In front of the desktop's own area, so that it is found first.
HWND OpenArea() {
  WNDCLASSA record{};
  record.lpfnWndProc = Procedure;
  record.hInstance = GetModuleHandleA(nullptr);
  record.lpszClassName = kAreaClass;
  RegisterClassA(&record);
  const HWND area = CreateWindowExA(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, kAreaClass, "", WS_POPUP, 0,
                                    0, 0, 0, nullptr, nullptr, record.hInstance, nullptr);
  SetWindowPos(area, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  return area;
}

void HandleMessages() {
  MSG message{};
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
}

/// Waits until the picture changes; how long that took since `begin`, or has taken when it is given
/// up.
double UntilChange(double begin) {
  constexpr double kPatience = 10000;
  const int changes = watch.changes;
  while (watch.changes == changes) {
    if (Now() - begin > kPatience) return Now() - begin;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
    HandleMessages();
  }
  return watch.changed - begin;
}

int Run(int rounds, const char* path, const char* text) {
  Tail log(path);
  const HWND area = OpenArea();
  if (!log.Valid() || FindWindowA(kAreaClass, nullptr) != area) {
    std::fprintf(stderr, "no log file, or the notification area is another one\n");
    return 1;
  }
  std::puts("ready");
  for (int round = 0; round < rounds;) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 1, QS_ALLINPUT);
    HandleMessages();
    if (log.More().find(text) == std::string::npos) continue;
    std::printf("%.1f\n", UntilChange(Now()));
    ++round;
  }
  std::printf("gap %.1f\n", watch.longestGap);
  return 0;
}

}  // namespace
}  // namespace tarvo

int main(int argc, char** argv) {
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  const int rounds = argc == 4 ? std::atoi(argv[1]) : 0;
  if (rounds > 0) return tarvo::Run(rounds, argv[2], argv[3]);
  std::fprintf(stderr, "usage: picture-watch ROUNDS LOG TEXT\n");
  return 1;
}
