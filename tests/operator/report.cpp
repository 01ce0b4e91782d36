#include "report.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <map>

#include "actions.h"

namespace tarvo {
namespace {

std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (char c : text) {
    if (c == '\r') {
      quoted += "\\r";
    } else if (c == '\n') {
      quoted += "\\n";
    } else {
      if (c == '"' || c == '\\') quoted += '\\';
      quoted += c;
    }
  }
  return quoted + '"';
}

std::string Colour(HWND light) {
  const auto kept = reinterpret_cast<INT_PTR>(GetPropA(light, kLightColourProperty));
  char text[16];
  std::snprintf(text, sizeof text, "0x%06X", static_cast<unsigned>(kept - 1));
  return kept == 0 ? "none" : text;
}

std::string Details(const FoundControl& control) {
  switch (control.entry->type) {
    case ControlType::CheckBox:
    case ControlType::Option:
      return " checked=" + std::to_string(Send(control.window, BM_GETCHECK));
    case ControlType::List:
      return " selection=" + std::to_string(static_cast<int>(Send(control.window, CB_GETCURSEL)));
    case ControlType::ListBox:
      return " selection=" + std::to_string(static_cast<int>(Send(control.window, LB_GETCURSEL)));
    case ControlType::ScrollBar:
      return " value=" + std::to_string(Send(control.window, SBM_GETPOS));
    case ControlType::Light:
      return " light=" + Colour(control.window);
    default:
      return {};
  }
}

/// From the left upper corner of the launcher's client.
std::string PlaceOf(HWND launcher, HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  MapWindowPoints(nullptr, launcher, reinterpret_cast<POINT*>(&place), 2);
  char text[64];
  std::snprintf(text, sizeof text, "%ld,%ld,%ld,%ld", place.left, place.top,
                place.right - place.left, place.bottom - place.top);
  return text;
}

void PrintControl(HWND launcher, const FoundControl& control) {
  std::printf("%s enabled=%d visible=%d", NameOf(control).c_str(),
              IsWindowEnabled(control.window) != 0, IsWindowVisible(control.window) != 0);
  if (control.entry->type != ControlType::Tab && control.entry->type != ControlType::RichText) {
    std::printf(" text=%s", Quoted(ReadText(control)).c_str());
  }
  std::printf("%s place=%s\n", Details(control).c_str(), PlaceOf(launcher, control.window).c_str());
}

void PrintEntry(HWND launcher, const std::map<int, HWND>& windows, const ControlId& entry,
                int only = -1) {
  for (int i = 0; i < entry.count; ++i) {
    const auto window = windows.find(entry.firstId + i);
    if (window == windows.end() || (only >= 0 && i != only)) continue;
    PrintControl(launcher, {&entry, i, window->second});
  }
}

}  // namespace

std::string ReadText(const FoundControl& control) {
  if (control.entry->type == ControlType::ListBox) {
    const LRESULT selected = Send(control.window, LB_GETCURSEL);
    return selected < 0 ? std::string() : EntryOf(control, selected);
  }
  std::string text = TextOf(control.window);
  const ControlType type = control.entry->type;
  if (type == ControlType::Button || type == ControlType::CheckBox || type == ControlType::Option) {
    std::erase(text, '&');
  }
  return text;
}

void PrintState(HWND launcher) {
  PrintWindowState(launcher);
  const std::map<int, HWND> windows = ControlWindows(launcher);
  for (const ControlId& entry : kControlIds) PrintEntry(launcher, windows, entry);
}

void PrintWindowState(HWND launcher) {
  std::printf("window title=%s visible=%d minimized=%d enabled=%d page=%d pid=%lu\n",
              Quoted(TextOf(launcher)).c_str(), IsWindowVisible(launcher) != 0,
              IsIconic(launcher) != 0, IsWindowEnabled(launcher) != 0, ShownPage(launcher),
              ProcessOf(launcher));
}

void PrintControlState(HWND launcher, const std::string& name, int index) {
  const ControlId* entry = FindControlId(name);
  if (entry) PrintEntry(launcher, ControlWindows(launcher), *entry, index);
}

void WaitForText(const LauncherChoice& choice, const std::string& name, int index,
                 const std::string& part, DWORD patience) {
  const DWORD start = GetTickCount();
  std::string text;
  for (;;) {
    if (const HWND launcher = FindLauncher(choice)) {
      text = ReadText(NeedControl(launcher, name, index));
      if (text.find(part) != std::string::npos) return;
    }
    if (GetTickCount() - start >= patience) break;
    Sleep(50);
  }
  throw OperatorError("no \"" + part + "\" in " + name + ", which reads:\n" + text);
}

}  // namespace tarvo
