// The program entry: joins the real machine, the main window object and its native window.

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
  tarvo::NativeWindow window(principal.TheForm(), principal.TheTimers(), principal.Dispatch());
  machine.SetOwner(window.Handle());
  principal.Start(window.Handle());
  return window.Run();
}
