#pragma once

#include <windows.h>

#include <vector>

#include "toolkit/grid.h"

namespace tarvo {

/// Every screen of the desktop, without its task bar.
std::vector<Place> Screens();

/// The screen that shows most of a window, or the nearest one, without its task bar.
Place ScreenOf(HWND window);

/// Where a window is, its frame included.
Place PlaceOf(HWND window);

}  // namespace tarvo
