// The common controls, loaded late: comctl32 in the import table would be loaded before `main`, and
// would load the theme library from wherever a file of that name is found.

#include "toolkit/windows/common_controls.h"

#include "platform/windows/system_libraries.h"

namespace tarvo {
namespace {

/// The functions that are called by the system's own names; they are defined below, so that the
/// linker asks for no other. Every system that the launcher runs on has them.
struct Calls {
  static constexpr char kLibrary[] = "comctl32.dll";
  decltype(&::InitCommonControlsEx) initialize =
      LateCall<decltype(&::InitCommonControlsEx)>(kLibrary, "InitCommonControlsEx");
  decltype(&::SetWindowSubclass) set =
      LateCall<decltype(&::SetWindowSubclass)>(kLibrary, "SetWindowSubclass");
  decltype(&::RemoveWindowSubclass) remove =
      LateCall<decltype(&::RemoveWindowSubclass)>(kLibrary, "RemoveWindowSubclass");
  decltype(&::DefSubclassProc) passOn =
      LateCall<decltype(&::DefSubclassProc)>(kLibrary, "DefSubclassProc");
};

const Calls& Comctl32() {
  static const Calls calls;
  return calls;
}

}  // namespace

void LoadCommonControls() {
  const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_STANDARD_CLASSES | ICC_WIN95_CLASSES};
  Comctl32().initialize(&controls);
}

}  // namespace tarvo

extern "C" {

BOOL WINAPI SetWindowSubclass(HWND window, SUBCLASSPROC procedure, UINT_PTR id, DWORD_PTR data) {
  return tarvo::Comctl32().set(window, procedure, id, data);
}

BOOL WINAPI RemoveWindowSubclass(HWND window, SUBCLASSPROC procedure, UINT_PTR id) {
  return tarvo::Comctl32().remove(window, procedure, id);
}

LRESULT WINAPI DefSubclassProc(HWND window, UINT message, WPARAM w, LPARAM l) {
  return tarvo::Comctl32().passOn(window, message, w, l);
}
}
