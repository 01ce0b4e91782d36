#include "platform/windows/code_page_windows.h"

#include <windows.h>

namespace tarvo {

bool WindowsCodePage::IsLeadByte(unsigned char byte) { return IsDBCSLeadByte(byte) != FALSE; }

}  // namespace tarvo
