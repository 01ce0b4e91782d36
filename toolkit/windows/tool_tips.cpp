#include "toolkit/windows/tool_tips.h"

#include <windows.h>

#include <commctrl.h>

#include "toolkit/windows/widget.h"

namespace tarvo {
namespace {

constexpr int kWidestTip = 320;  ///< At 100 %; a longer text goes over several lines.
constexpr int kShownFor = 20000;

TOOLINFOA ToolOf(HWND panel, UINT_PTR id, UINT flags) {
  TOOLINFOA tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = flags;
  tool.hwnd = panel;
  tool.uId = id;
  tool.lpszText = LPSTR_TEXTCALLBACKA;
  return tool;
}

/// The tool of the place differs from that of the window by the lowest bit, which no pointer has
/// set.
UINT_PTR PlaceId(const Widget& widget) { return reinterpret_cast<UINT_PTR>(&widget) | 1; }

const Widget* WidgetOf(const NMTTDISPINFOA& request) {
  const UINT_PTR id = request.hdr.idFrom;
  if ((request.uFlags & TTF_IDISHWND) != 0) return Widget::Of(reinterpret_cast<HWND>(id));
  return reinterpret_cast<const Widget*>(id & ~UINT_PTR{1});
}

}  // namespace

void ToolTips::Open() {
  window_ = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr,
                            WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, panel_, nullptr,
                            stage_.instance, nullptr);
  SendMessageA(window_, TTM_SETDELAYTIME, TTDT_AUTOPOP, kShownFor);
  TakeLook();
}

void ToolTips::Add(const Widget& widget) {
  TOOLINFOA window = ToolOf(panel_, reinterpret_cast<UINT_PTR>(widget.Window()), TTF_IDISHWND);
  SendMessageA(window_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&window));
  TOOLINFOA place = ToolOf(panel_, PlaceId(widget), 0);
  SendMessageA(window_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&place));
}

void ToolTips::Placed(const Widget& widget) {
  TOOLINFOA place = ToolOf(panel_, PlaceId(widget), 0);
  GetWindowRect(widget.Window(), &place.rect);
  MapWindowPoints(nullptr, panel_, reinterpret_cast<POINT*>(&place.rect), 2);
  SendMessageA(window_, TTM_NEWTOOLRECTA, 0, reinterpret_cast<LPARAM>(&place));
}

void ToolTips::TakeLook() {
  SendMessageA(window_, WM_SETFONT, reinterpret_cast<WPARAM>(stage_.look.Font()), FALSE);
  SendMessageA(window_, TTM_SETMAXTIPWIDTH, 0, stage_.look.Px(kWidestTip));
}

void ToolTips::Follow(const MSG& message) {
  if (message.hwnd != panel_ && GetParent(message.hwnd) != panel_) return;
  MSG copy = message;
  SendMessageA(window_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&copy));
}

bool ToolTips::Answer(NMHDR& notification) {
  if (notification.hwndFrom != window_ || notification.code != TTN_GETDISPINFOA) return false;
  auto& request = reinterpret_cast<NMTTDISPINFOA&>(notification);
  const Widget* widget = WidgetOf(request);
  text_ = widget ? widget->Tip() : std::string();
  request.lpszText = text_.data();
  return true;
}

}  // namespace tarvo
