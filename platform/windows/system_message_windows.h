#pragma once

#include <windows.h>

#include <string>

namespace tarvo {

/// The system's own words for an error number, in the system's language, one line without a stop at
/// its end; its number when it has no words for it.
std::string SystemMessage(DWORD error);

/// Whether an error number says that a file, or a folder on the way to it, is not there.
constexpr bool MeansMissing(DWORD error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

}  // namespace tarvo
