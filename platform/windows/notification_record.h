#pragma once

#include <windows.h>

#include <shellapi.h>

#include "platform/notification_area.h"

namespace tarvo {

/// The message by which the shell reports the mouse over the icon; the mouse message is in its
/// lParam.
inline constexpr UINT kIconMessage = WM_MOUSEMOVE;

/// The record that describes the icon to the shell, in the size of its first version;
/// `window` gets kIconMessage. The tip ends with a NUL, however long it is.
NOTIFYICONDATAA NotificationRecord(HWND window, const NotificationIcon& icon);

}  // namespace tarvo
