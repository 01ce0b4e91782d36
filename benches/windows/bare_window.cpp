// The program that the launcher is measured against: one window of the same toolkit (common
// controls with visual styles, tab view, rich edit, status text), and nothing behind it.

#include <windows.h>
// After windows.h, which it needs.
#include <commctrl.h>

namespace {

constexpr char kClass[] = "TarvoBareWindow";

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

int main() {
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_STANDARD_CLASSES | ICC_TAB_CLASSES};
  InitCommonControlsEx(&controls);
  LoadLibraryA("riched20.dll");
  WNDCLASSA windowClass{};
  windowClass.lpfnWndProc = Procedure;
  windowClass.hInstance = GetModuleHandleA(nullptr);
  windowClass.lpszClassName = kClass;
  windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  RegisterClassA(&windowClass);
  const HWND window = CreateWindowExA(0, kClass, "Bare", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                      CW_USEDEFAULT, 640, 480, nullptr, nullptr, nullptr, nullptr);
  CreateWindowExA(0, WC_TABCONTROLA, "", WS_CHILD | WS_VISIBLE, 8, 8, 600, 40, window, nullptr,
                  nullptr, nullptr);
  CreateWindowExA(0, "RichEdit20A", "", WS_CHILD | WS_VISIBLE | ES_MULTILINE, 8, 56, 600, 360,
                  window, nullptr, nullptr, nullptr);
  ShowWindow(window, SW_SHOWNORMAL);
  UpdateWindow(window);
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  return 0;
}
