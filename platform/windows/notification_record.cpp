#include "platform/windows/notification_record.h"

namespace tarvo {
namespace {

constexpr UINT kIconId = 1;
constexpr UINT kFlags = NIF_MESSAGE | NIF_ICON | NIF_TIP;
static_assert(kIconMessage == 512 && kFlags == 7);

constexpr DWORD kRecordSize = NOTIFYICONDATAA_V1_SIZE;
static_assert(kRecordSize == (sizeof(void*) == 4 ? 88 : 104));
static_assert(kLongestTip == 64 - 1);  // The first version's tip and its end mark.

}  // namespace

NOTIFYICONDATAA NotificationRecord(HWND window, const NotificationIcon& icon) {
  NOTIFYICONDATAA record{};
  record.cbSize = kRecordSize;
  record.hWnd = window;
  record.uID = kIconId;
  record.uFlags = kFlags;
  record.uCallbackMessage = kIconMessage;
  record.hIcon = reinterpret_cast<HICON>(icon.icon);
  icon.tip.copy(record.szTip, kLongestTip);
  return record;
}

}  // namespace tarvo
