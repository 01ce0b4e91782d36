#include "desktop/window_options.h"

namespace tarvo {

void WindowOptions::opt_ShowWin_Click(ComponentKind kind) {
  ShowToggle[kind] = ShowToggle[kind] >= 1 ? 0 : 1;
  processes_.ShowComponentWindow(components_[kind].RunningHandle, ShowToggle[kind] == 0);
}

}  // namespace tarvo
