// The launcher, of which after a while nothing but the status tick goes on, and in the end not even
// that; the window's title says which of the two it is, "tick" or "nothing":
//
//   status-tick SETTLE SECONDS     everything for SETTLE seconds, then the tick alone for three
//                                  times SECONDS; both at most 60, as every interval
//
// What the one needs more than the other is the tick's.

#include <cstdint>
#include <cstdlib>

#include "app/principal.h"
#include "form/windows/native_window.h"
#include "platform/windows/windows_machine.h"

namespace {

void StopAllBut(tarvo::Timers& timers, const tarvo::Timer* kept) {
  for (auto* watch : {&timers.CrashWatch, &timers.Preparation, &timers.Probe, &timers.Reprobe}) {
    for (tarvo::Timer& timer : *watch) timer.SetEnabled(false);
  }
  for (tarvo::Timer* timer : {&timers.Mem, &timers.tmrAlarma, &timers.tmr_Calendar}) {
    if (timer != kept) timer->SetEnabled(false);
  }
}

std::uint32_t Milliseconds(const char* seconds) {
  return static_cast<std::uint32_t>(std::atoi(seconds)) * 1000;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 1;
  tarvo::WindowsMachine machine;
  tarvo::Principal principal(machine.Ports());
  tarvo::NativeWindow window(principal.TheForm(), principal.TheTimers(), principal.Dispatch());
  machine.SetOwner(window.Handle());
  principal.Start(window.Handle());

  tarvo::Form& form = principal.TheForm();
  tarvo::Timer settle(principal.TheTimers(), "settle", Milliseconds(argv[1]), true);
  tarvo::Timer alone(principal.TheTimers(), "alone", Milliseconds(argv[2]));
  settle.onTick = [&] {
    settle.SetEnabled(false);
    StopAllBut(form.timers, &form.timers.tmrAlarma);
    alone.SetEnabled(true);
    form.frame.window.SetTitle("tick");
  };
  int passed = 0;
  alone.onTick = [&] {
    if (++passed < 3) return;
    alone.SetEnabled(false);
    StopAllBut(form.timers, nullptr);
    form.frame.window.SetTitle("nothing");
  };
  return window.Run();
}
