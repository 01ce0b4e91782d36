// The launcher without the check-up that runs by itself: what the first picture is measured
// against.

#include "app/principal.h"
#include "app/version.h"
#include "form/windows/native_window.h"
#include "platform/windows/fault_guard.h"
#include "platform/windows/system_libraries.h"
#include "platform/windows/windows_machine.h"

int main() {
  tarvo::WatchForFaults(tarvo::kVersion);
  tarvo::LoadFromSystemFolderOnly();
  tarvo::WindowsMachine machine;
  tarvo::Principal principal(machine.Ports());
  principal.TheForm().frame.onComplete = nullptr;
  tarvo::NativeWindow window(principal.TheForm(), principal.TheTimers(), principal.Dispatch());
  machine.SetOwner(window.Handle());
  principal.Start(window.Handle());
  return window.Run();
}
