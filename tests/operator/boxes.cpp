#include "boxes.h"

#include <algorithm>
#include <vector>

namespace tarvo {
namespace {

constexpr char kBoxTitle[] = "Tarvo Launcher";

struct BoxSearch {
  const LauncherChoice& choice;
  HWND launcher;
  HWND found;
};

BOOL CALLBACK TakeBox(HWND window, LPARAM parameter) {
  auto& search = *reinterpret_cast<BoxSearch*>(parameter);
  if (ClassOf(window) != "#32770" || !IsWindowVisible(window)) return TRUE;
  const bool ofLauncher = search.launcher && ProcessOf(window) == ProcessOf(search.launcher);
  char title[64] = "";
  GetWindowTextA(window, title, sizeof title);
  const bool fits = std::string(title) == kBoxTitle && search.choice.Fits(ProcessOf(window));
  if (!ofLauncher && !fits) return TRUE;
  search.found = window;
  return FALSE;
}

BOOL CALLBACK Collect(HWND window, LPARAM list) {
  reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  return TRUE;
}

std::vector<HWND> ChildrenOf(HWND box, const char* windowClass) {
  std::vector<HWND> all;
  EnumChildWindows(box, Collect, reinterpret_cast<LPARAM>(&all));
  std::erase_if(all, [windowClass](HWND child) { return ClassOf(child) != windowClass; });
  return all;
}

bool HoldsIcon(HWND label) {
  return (GetWindowLongPtrA(label, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
}

const char* IconOf(HWND box) {
  const std::pair<LPSTR, const char*> known[] = {{IDI_HAND, "critical"},
                                                 {IDI_EXCLAMATION, "exclamation"},
                                                 {IDI_QUESTION, "question"},
                                                 {IDI_ASTERISK, "information"}};
  for (HWND label : ChildrenOf(box, "Static")) {
    if (!HoldsIcon(label)) continue;
    const auto icon = reinterpret_cast<HICON>(Send(label, STM_GETICON));
    for (const auto& [id, name] : known) {
      if (icon && icon == LoadIconA(nullptr, id)) return name;
    }
    return icon ? "other" : "none";
  }
  return "none";
}

std::string Plain(std::string caption) {
  std::erase(caption, '&');
  return caption;
}

HWND NeedButton(HWND box, const std::string& name) {
  const std::vector<HWND> buttons = ChildrenOf(box, "Button");
  // The one button of an OK box has the number of Cancel on some systems.
  if (name == "ok" && buttons.size() == 1) return buttons.front();
  const int id = name == "yes" ? IDYES : name == "no" ? IDNO : name == "ok" ? IDOK : -1;
  for (HWND button : buttons) {
    if (GetDlgCtrlID(button) == id) return button;
  }
  throw OperatorError("the box has no button " + name);
}

}  // namespace

HWND FindBox(const LauncherChoice& choice) {
  BoxSearch search{choice, FindLauncher(choice), nullptr};
  EnumWindows(TakeBox, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

HWND WaitForBox(const LauncherChoice& choice, DWORD patience) {
  const DWORD start = GetTickCount();
  for (;;) {
    if (const HWND box = FindBox(choice)) return box;
    if (GetTickCount() - start >= patience) throw OperatorError("no message box is up");
    Sleep(kPoll);
  }
}

std::string MessageOf(HWND box) {
  std::string message;
  for (HWND label : ChildrenOf(box, "Static")) {
    if (!HoldsIcon(label)) message += TextOf(label);
  }
  return message;
}

std::string WordsOf(HWND box) {
  std::string words = "title: " + TextOf(box) + "\nicon: " + IconOf(box) + "\nbuttons:";
  for (HWND button : ChildrenOf(box, "Button")) words += " " + Plain(TextOf(button));
  return words + "\ntext: " + MessageOf(box) + "\n";
}

void PressInBox(HWND box, const std::string& name) {
  const HWND button = NeedButton(box, name);
  const auto id = static_cast<WPARAM>(GetDlgCtrlID(button));
  PostMessageA(box, WM_COMMAND, id, reinterpret_cast<LPARAM>(button));
  for (int round = 0; round < 300; ++round) {
    if (!IsWindow(box)) return;
    Sleep(kPoll);
  }
  throw OperatorError("the box does not go away");
}

}  // namespace tarvo
