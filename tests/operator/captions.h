#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tarvo {

/// The names of the pages, and then every fixed text that is to be seen: labels,
/// headings, and the captions of buttons, check boxes and options, without their access keys.
std::vector<std::string> CaptionsOf(HWND launcher);

}  // namespace tarvo
