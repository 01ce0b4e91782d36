#pragma once

#include <windows.h>

#include <optional>

namespace tarvo {

/// A class of windows with the arrow as their cursor, handled by `procedure`; more can be filled in
/// before it is registered.
inline WNDCLASSEXA WindowClass(HINSTANCE instance, const char* name, WNDPROC procedure) {
  WNDCLASSEXA record{};
  record.cbSize = sizeof record;
  record.lpfnWndProc = procedure;
  record.hInstance = instance;
  record.hCursor = LoadCursor(nullptr, IDC_ARROW);
  record.lpszClassName = name;
  return record;
}

/// Registers the class unless it is registered already.
inline void RegisterOnce(const WNDCLASSEXA& record) {
  WNDCLASSEXA known{};
  known.cbSize = sizeof known;
  if (!GetClassInfoExA(record.hInstance, record.lpszClassName, &known)) RegisterClassExA(&record);
}

/// The object that a window belongs to, as it was put there with `SetOwner`; nullptr before that.
template <class Owner>
Owner* OwnerOf(HWND window) {
  return reinterpret_cast<Owner*>(GetWindowLongPtrA(window, GWLP_USERDATA));
}

template <class Owner>
void SetOwner(HWND window, Owner* owner) {
  SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(owner));
}

/// A window procedure: what the owner's member does not answer, and all before it has one, the
/// system does. Name it inside of the owner, where its member is accessible. An exception ends the
/// program here, as it does in each callback: some systems swallow one that goes on into theirs.
template <class Owner, std::optional<LRESULT> (Owner::*Handle)(UINT, WPARAM, LPARAM)>
LRESULT CALLBACK ProcedureOf(HWND window, UINT message, WPARAM w, LPARAM l) noexcept {
  auto* owner = OwnerOf<Owner>(window);
  const std::optional<LRESULT> answer = owner ? (owner->*Handle)(message, w, l) : std::nullopt;
  return answer ? *answer : DefWindowProcA(window, message, w, l);
}

}  // namespace tarvo
