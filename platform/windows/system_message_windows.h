#pragma once

#include <windows.h>

#include <string>

namespace tarvo {

/// The system's own words for an error number, in the system's language, one line without a stop at
/// its end; its number when it has no words for it.
std::string SystemMessage(DWORD error);

}  // namespace tarvo
