#pragma once

#include <windows.h>

namespace tarvo {

/// Prints, one a line, the names of the pages and then every fixed text that is to be seen: labels,
/// headings, and the captions of buttons, check boxes and options, without their access keys.
void PrintCaptions(HWND launcher);

}  // namespace tarvo
