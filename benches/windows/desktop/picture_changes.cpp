// Changes the picture in the notification area as a status tick does, lights and strips included,
// in a program with the launcher's window; prints, one a line, a name and a value:
//
//   picture-changes TIMES
//
//   gdi, user                  objects of the process that there are more than before
//   tick                       milliseconds of a tick at which every state changes, drawing and
//                              notification area included, the median

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "benches/windows/desktop/stopwatch.h"
#include "benches/windows/object_count.h"
#include "desktop/frm_sys_tray.h"
#include "desktop/last_hour.h"
#include "desktop/status_picture.h"
#include "form/windows/native_window.h"
#include "platform/windows/clock_windows.h"
#include "platform/windows/code_page_windows.h"
#include "platform/windows/icons_windows.h"
#include "platform/windows/notification_area_windows.h"
#include "supervision/status_lights.h"

namespace tarvo {
namespace {

void HandleMessages() {
  MSG message{};
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
}

/// The launcher's window and icon, and of its work the status tick alone.
class StatusDesk {
 public:
  StatusDesk() {
    tray_.Load("[Northwind] - Tarvo Launcher", icons_.For(StatesOfCode(8)));
    form_.frame.window.SetVisible(true);
    HandleMessages();
  }

  void Tick(int number) {
    for (Component& component : components_) {
      component.AlarmState = static_cast<AlarmState>(number % 3);
      number /= 3;
    }
    lights_.Combine();
    tray_.SetIconHandle(icons_.For(StatesOfCode(lights_.StatusCode())));
    lights_.Show();
    lastHour_.Note();
    HandleMessages();
  }

 private:
  WindowsTickClock clock_;
  WindowsNotificationArea area_;
  WindowsIcons system_;
  WindowsCodePage codePage_;
  TimerQueue timers_{clock_};
  Form form_{timers_};
  EventDispatch dispatch_;
  NativeWindow window_{form_, timers_, dispatch_};
  ComponentTable components_;
  StatusLights lights_{form_.frame.Sem, components_};
  LastHour lastHour_{form_.frame.Strip, components_, clock_};
  StatusIcons icons_{system_};
  frmSysTray tray_{area_, codePage_, dispatch_};
};

bool AreaComesUp() {
  for (int waited = 0; waited < 100; ++waited) {
    if (FindWindowA("Shell_TrayWnd", nullptr)) return true;
    Sleep(100);
  }
  return false;
}

int Measure(int times) {
  constexpr int kCombinations = 27;
  StatusDesk desk;
  if (!AreaComesUp()) {
    std::fprintf(stderr, "there is no notification area\n");
    return 1;
  }
  for (int i = 0; i < 2 * kCombinations; ++i) desk.Tick(i);
  const int gdi = CountGdiObjects(GetCurrentProcessId());
  const int user = CountUserObjects();
  std::vector<double> took;
  for (int i = 0; i < times; ++i) {
    const double begin = Now();
    desk.Tick(i * 13);  // 111 to the base of 3: every state is another one than before.
    took.push_back(Now() - begin);
  }
  std::nth_element(took.begin(), took.begin() + times / 2, took.end());
  std::printf("gdi %d\n", CountGdiObjects(GetCurrentProcessId()) - gdi);
  std::printf("user %d\n", CountUserObjects() - user);
  std::printf("tick %.3f\n", took[static_cast<std::size_t>(times) / 2]);
  std::fprintf(stderr, "of %d gdi, %d user objects\n", gdi, user);
  return 0;
}

}  // namespace
}  // namespace tarvo

int main(int argc, char** argv) {
  const int times = argc == 2 ? std::atoi(argv[1]) : 0;
  if (times < 1) {
    std::fprintf(stderr, "usage: picture-changes TIMES\n");
    return 1;
  }
  return tarvo::Measure(times);
}
