#include "platform/windows/message_boxes_windows.h"

#include <windows.h>

namespace tarvo {
namespace {

constexpr char kTitle[] = "Tarvo Launcher";

UINT IconFlag(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Critical:
      return MB_ICONSTOP;
    case BoxIcon::Exclamation:
      return MB_ICONEXCLAMATION;
    case BoxIcon::Question:
      return MB_ICONQUESTION;
    case BoxIcon::Information:
      break;
  }
  return MB_ICONINFORMATION;
}

UINT ButtonFlags(const MessageBoxRequest& request) {
  if (request.buttons == BoxButtons::Ok) return MB_OK;
  return request.noIsDefault ? MB_YESNO | MB_DEFBUTTON2 : MB_YESNO | MB_DEFBUTTON1;
}

}  // namespace

Answer WindowsMessageBoxes::Ask(const MessageBoxRequest& request) {
  const HWND owner = reinterpret_cast<HWND>(owner_);
  const UINT modality = owner == nullptr ? MB_TASKMODAL : MB_APPLMODAL;
  const int pressed =
      MessageBoxA(owner, request.text.c_str(), kTitle,
                  IconFlag(request.icon) | ButtonFlags(request) | modality | MB_SETFOREGROUND);
  if (request.buttons == BoxButtons::Ok) return Answer::Ok;
  return pressed == IDYES ? Answer::Yes : Answer::No;
}

}  // namespace tarvo
