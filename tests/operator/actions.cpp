#include "actions.h"

#include <windows.h>

#include <commctrl.h>

#include <cwchar>
#include <vector>

namespace tarvo {
namespace {

HWND Tabs(HWND launcher) { return NeedControl(launcher, "SSTab1", -1).window; }

void NeedFree(HWND launcher) {
  if (!IsWindowEnabled(launcher)) throw OperatorError("a message box is up: answer it first");
}

bool OnShownPage(HWND control) {
  return (GetWindowLongPtrA(GetParent(control), GWL_STYLE) & WS_VISIBLE) != 0;
}

void BringIntoSight(HWND launcher, const FoundControl& control) {
  const LRESULT pages = Send(Tabs(launcher), TCM_GETITEMCOUNT);
  for (int page = 1; page <= pages && !OnShownPage(control.window); ++page) {
    GoToPage(launcher, page);
  }
  if (!OnShownPage(control.window)) throw OperatorError(NameOf(control) + " is on no page");
}

void NeedType(const FoundControl& control, bool fits, const char* what) {
  if (!fits) throw OperatorError(NameOf(control) + " is no " + what);
}

void Notify(HWND launcher, const FoundControl& control, int code) {
  const auto id = static_cast<WORD>(GetDlgCtrlID(control.window));
  SendAndSettle(launcher, GetParent(control.window), WM_COMMAND,
                MAKEWPARAM(id, static_cast<WORD>(code)), reinterpret_cast<LPARAM>(control.window));
}

bool IsOpenList(const FoundControl& list) { return list.entry->type == ControlType::ListBox; }

LRESULT NeedEntry(const FoundControl& control, const std::string& entry) {
  const LRESULT count = EntryCount(control);
  std::string known;
  for (LRESULT i = 0; i < count; ++i) {
    const std::string text = EntryOf(control, i);
    if (text == entry || "#" + std::to_string(i) == entry) return i;
    known += "\n  " + text;
  }
  throw OperatorError(NameOf(control) + " has no entry " + entry + ", but:" + known);
}

}  // namespace

LRESULT EntryCount(const FoundControl& list) {
  return Send(list.window, IsOpenList(list) ? LB_GETCOUNT : CB_GETCOUNT);
}

/// Asked for in wide characters: between processes not all systems turn the text of a list's entry
/// into 8-bit characters.
std::string EntryOf(const FoundControl& list, LRESULT index) {
  const bool open = IsOpenList(list);
  const auto entry = static_cast<WPARAM>(index);
  const LRESULT length = Send(list.window, open ? LB_GETTEXTLEN : CB_GETLBTEXTLEN, entry);
  std::wstring wide(static_cast<std::size_t>(length) + 1, L'\0');
  const LRESULT got = SendWide(list.window, open ? LB_GETTEXT : CB_GETLBTEXT, entry,
                               reinterpret_cast<LPARAM>(wide.data()));
  std::string text(static_cast<std::size_t>(got) * 2, '\0');
  text.resize(static_cast<std::size_t>(
      WideCharToMultiByte(CP_ACP, 0, wide.c_str(), static_cast<int>(got), text.data(),
                          static_cast<int>(text.size()), nullptr, nullptr)));
  return text;
}

void NeedReach(HWND launcher, const FoundControl& control) {
  NeedFree(launcher);
  if (!IsWindowVisible(launcher) || IsIconic(launcher)) {
    throw OperatorError("the window is hidden: restore it first");
  }
  BringIntoSight(launcher, control);
  if (!IsWindowEnabled(control.window)) throw OperatorError(NameOf(control) + " is disabled");
}

void Click(HWND launcher, const FoundControl& control) {
  const ControlType type = control.entry->type;
  NeedType(
      control,
      type == ControlType::Button || type == ControlType::CheckBox || type == ControlType::Option,
      "button, check box or option");
  NeedReach(launcher, control);
  Notify(launcher, control, BN_CLICKED);
}

void SetTo(HWND launcher, const FoundControl& control, const std::string& text) {
  NeedType(control, control.entry->type == ControlType::TextBox, "text box");
  NeedReach(launcher, control);
  Send(control.window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void TypeKeys(HWND launcher, const FoundControl& control, const std::string& characters) {
  NeedType(control, control.entry->type == ControlType::TextBox, "text box");
  NeedReach(launcher, control);
  for (char key : characters) {
    Send(control.window, WM_CHAR, static_cast<WPARAM>(static_cast<unsigned char>(key)), 1);
  }
}

void Scroll(HWND launcher, const FoundControl& control, int value) {
  NeedType(control, control.entry->type == ControlType::ScrollBar, "scroll bar");
  NeedReach(launcher, control);
  SendAndSettle(launcher, GetParent(control.window), WM_HSCROLL,
                MAKEWPARAM(SB_THUMBPOSITION, static_cast<WORD>(value)),
                reinterpret_cast<LPARAM>(control.window));
}

void Select(HWND launcher, const FoundControl& control, const std::string& entry) {
  const bool open = IsOpenList(control);
  NeedType(control, open || control.entry->type == ControlType::List, "list");
  NeedReach(launcher, control);
  Send(control.window, open ? LB_SETCURSEL : CB_SETCURSEL,
       static_cast<WPARAM>(NeedEntry(control, entry)));
  Notify(launcher, control, open ? LBN_SELCHANGE : CBN_SELCHANGE);
}

void Check(HWND launcher, const FoundControl& control, bool checked) {
  NeedType(control, control.entry->type == ControlType::CheckBox, "check box");
  NeedReach(launcher, control);
  const LRESULT wanted = checked ? BST_CHECKED : BST_UNCHECKED;
  if (Send(control.window, BM_GETCHECK) == wanted) return;
  Notify(launcher, control, BN_CLICKED);
  if (Send(control.window, BM_GETCHECK) == wanted) return;
  throw OperatorError(NameOf(control) + " does not take the click");
}

int ShownPage(HWND launcher) { return static_cast<int>(Send(Tabs(launcher), TCM_GETCURSEL)) + 1; }

void GoToPage(HWND launcher, int page) {
  NeedFree(launcher);
  const LRESULT pages = Send(Tabs(launcher), TCM_GETITEMCOUNT);
  if (page < 1 || page > pages) {
    throw OperatorError("no page " + std::to_string(page) + ": 1 to " + std::to_string(pages));
  }
  Send(Tabs(launcher), TCM_SETCURFOCUS, static_cast<WPARAM>(page - 1));
}

namespace {

BOOL CALLBACK AddOwn(HWND window, LPARAM argument) {
  auto& windows = *reinterpret_cast<std::vector<HWND>*>(argument);
  if (ProcessOf(window) == ProcessOf(windows.front()) && window != windows.front()) {
    windows.push_back(window);
  }
  return TRUE;
}

}  // namespace

void LogOff(HWND launcher, const std::string& step) {
  if (step != "asked" && step != "ends" && step != "off") {
    throw OperatorError("log-off wants asked, ends or off");
  }
  std::vector<HWND> windows{launcher};
  EnumWindows(AddOwn, reinterpret_cast<LPARAM>(&windows));
  for (const HWND window : windows) {
    if (step == "asked") {
      if (Send(window, WM_QUERYENDSESSION) == 0) throw OperatorError("a window refuses the end");
    } else {
      // Whoever ends may be gone before its last window is told.
      SendMessageTimeoutA(window, WM_ENDSESSION, step == "ends", 0, SMTO_NORMAL, kPatience,
                          nullptr);
    }
  }
}

void WindowCommand(HWND launcher, WPARAM command) {
  NeedFree(launcher);
  SendAndSettle(launcher, launcher, WM_SYSCOMMAND, command, 0);
}

}  // namespace tarvo
