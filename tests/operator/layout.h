#pragma once

#include <windows.h>

namespace tarvo {

/// Goes through all pages and prints each fault of their layout, one a line: controls that overlap,
/// that are cut off by what they stand in, whose text has no room, that have no name for a screen
/// reader, or that share an access key with another one. Returns how many faults there are.
int ReportLayout(HWND launcher);

}  // namespace tarvo
