#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tarvo {

/// Goes through all pages and tells each fault of their layout: controls that overlap,
/// that are cut off by what they stand in, whose text has no room, that have no name for a screen
/// reader, or that share an access key with another one.
std::vector<std::string> LayoutFaults(HWND launcher);

}  // namespace tarvo
