#include "platform/windows/working_folder_windows.h"

#include <windows.h>

namespace tarvo {

bool WindowsWorkingFolder::MoveInto(const std::string& folder) {
  return SetCurrentDirectoryA(folder.c_str()) != 0;
}

}  // namespace tarvo
