#pragma once

#include <windows.h>
// After windows.h, which it needs.
#include <commctrl.h>

namespace tarvo {

/// Registers the window classes of the common controls; before the first window.
void LoadCommonControls();

}  // namespace tarvo
