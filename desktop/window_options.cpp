#include "desktop/window_options.h"

#include "core/registry_text.h"

namespace tarvo {
namespace {

constexpr char kRunKey[] = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";

}  // namespace

void WindowOptions::Check2_Click() {
  const std::string& name = form_.frame.SName.Caption();
  if (form_.servers.Check2.Checked()) {
    WriteRegistryString(registry_, Hive::LocalMachine, kRunKey, name,
                        root_.WithSeparator() + root_.ExecutableName() + ".exe");
  } else {
    DeleteRegistryValue(registry_, Hive::LocalMachine, kRunKey, name);
  }
}

void WindowOptions::opt_ShowWin_Click(ComponentKind kind) {
  ShowToggle[kind] = ShowToggle[kind] >= 1 ? 0 : 1;
  processes_.ShowComponentWindow(components_[kind].RunningHandle, ShowToggle[kind] == 0);
}

}  // namespace tarvo
