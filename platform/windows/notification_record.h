#pragma once

#include <windows.h>

#include <shellapi.h>

#include "platform/notification_area.h"

namespace tarvo {

/// The message by which the shell tells of the mouse over the icon, which is its detail.
inline constexpr UINT kIconMessage = WM_MOUSEMOVE;

/// The record by which the shell is told of the icon, in the size of its first version;
/// `window` gets kIconMessage. The tip ends with a NUL, however long it is.
NOTIFYICONDATAA NotificationRecord(HWND window, const NotificationIcon& icon);

}  // namespace tarvo
