#pragma once

#include <windows.h>
// After windows.h, which it needs.
#include <commctrl.h>

namespace tarvo {

/// Registers the window classes of the common controls. Call it before the first window is made.
void LoadCommonControls();

}  // namespace tarvo
