#pragma once

#include <windows.h>

#include <vector>

#include "platform/windows/system_libraries.h"
#include "toolkit/grid.h"

namespace tarvo {

/// Every screen of the desktop, without its task bar.
std::vector<Place> Screens();

/// The screen that shows most of a window, or the nearest one, without its task bar.
Place ScreenOf(HWND window);

/// Where a window is, its frame included.
Place PlaceOf(HWND window);

/// The resolution that a window is shown at, in dots per inch: that of its monitor where the system
/// knows one for each, otherwise that of the whole screen.
int DpiOf(HWND window);

/// The resolution that programs start with, which rich text is measured at.
int SystemDpi();

/// Enlarges a client rectangle to the window around it.
void GrowToWindow(RECT& rectangle, HWND window, int dpi);

/// The system's message font at a resolution.
LOGFONTW MessageFontAt(int dpi);

}  // namespace tarvo
