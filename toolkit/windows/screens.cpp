#include "toolkit/windows/screens.h"

namespace tarvo {
namespace {

Place ToPlace(const RECT& rectangle) {
  return {static_cast<int>(rectangle.left), static_cast<int>(rectangle.top),
          static_cast<int>(rectangle.right - rectangle.left),
          static_cast<int>(rectangle.bottom - rectangle.top)};
}

Place WorkAreaOf(HMONITOR monitor) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  GetMonitorInfoA(monitor, &info);
  return ToPlace(info.rcWork);
}

BOOL CALLBACK Take(HMONITOR monitor, HDC /*target*/, RECT* /*area*/, LPARAM screens) {
  reinterpret_cast<std::vector<Place>*>(screens)->push_back(WorkAreaOf(monitor));
  return TRUE;
}

}  // namespace

std::vector<Place> Screens() {
  std::vector<Place> screens;
  EnumDisplayMonitors(nullptr, nullptr, Take, reinterpret_cast<LPARAM>(&screens));
  return screens;
}

Place ScreenOf(HWND window) {
  return WorkAreaOf(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST));
}

Place PlaceOf(HWND window) {
  RECT rectangle{};
  GetWindowRect(window, &rectangle);
  return ToPlace(rectangle);
}

}  // namespace tarvo
