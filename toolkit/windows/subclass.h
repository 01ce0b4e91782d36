#pragma once

#include <windows.h>
// After windows.h, which it needs.
#include <commctrl.h>

namespace tarvo {

template <auto Handle, class Self>
LRESULT CALLBACK SubclassProcedure(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                                   DWORD_PTR self) {
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, SubclassProcedure<Handle, Self>, id);
  return (reinterpret_cast<Self*>(self)->*Handle)(message, w, l);
}

/// Hands every message of a native control's window to a member function of `self` first:
/// `LRESULT Handle(UINT, WPARAM, LPARAM)`, which answers with `DefSubclassProc` what it does not
/// answer itself. Ends with the window, which `self` must outlive.
template <auto Handle, class Self>
void Subclass(HWND window, Self& self) {
  SetWindowSubclass(window, SubclassProcedure<Handle, Self>, 0, reinterpret_cast<DWORD_PTR>(&self));
}

}  // namespace tarvo
