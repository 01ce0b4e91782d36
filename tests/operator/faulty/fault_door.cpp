// The one file that the launcher lacks and its faulty build has: a message makes the launcher fail
// where it stands, in the middle of its message loop. `operator fault KIND` sends it.

#include "fault_door.h"

#include <windows.h>

#include <cstdlib>
#include <cstring>
#include <new>
#include <stdexcept>

namespace {

bool noMemory = false;

void Throw() { throw std::runtime_error("nobody catches it"); }

/// Whoever calls it comes back no more.
void Hang(FARPROC call) {
  constexpr char kJumpToItself[] = {'\xEB', '\xFE'};
  void* code = reinterpret_cast<void*>(call);
  DWORD before = 0;
  VirtualProtect(code, sizeof kJumpToItself, PAGE_EXECUTE_READWRITE, &before);
  std::memcpy(code, kJumpToItself, sizeof kJumpToItself);
}

void Fail(WPARAM fault) {
  if (fault == 4) Hang(GetProcAddress(GetModuleHandleA("advapi32.dll"), "RegisterEventSourceA"));
  if (fault == 0 || fault == 4) *static_cast<volatile int*>(nullptr) = 1;
  if (fault == 1) noMemory = true;
  if (fault == 2) std::abort();
  if (fault == 3) []() noexcept { Throw(); }();
}

LRESULT CALLBACK Watch(int code, WPARAM w, LPARAM l) {
  static const UINT message = RegisterWindowMessageA(tarvo::kFaultMessage);
  const MSG& taken = *reinterpret_cast<const MSG*>(l);
  if (code == HC_ACTION && w == PM_REMOVE && taken.message == message) Fail(taken.wParam);
  return CallNextHookEx(nullptr, code, w, l);
}

const HHOOK door = SetWindowsHookExA(WH_GETMESSAGE, &Watch, nullptr, GetCurrentThreadId());

}  // namespace

// Once memory has run out nothing gets any, be it ever so little.
void* operator new(std::size_t size) {
  for (;;) {
    if (void* room = noMemory ? nullptr : std::malloc(size == 0 ? 1 : size)) return room;
    const std::new_handler handler = std::get_new_handler();
    if (!handler) throw std::bad_alloc();
    handler();
  }
}

void operator delete(void* room) noexcept { std::free(room); }
void operator delete(void* room, std::size_t) noexcept { std::free(room); }
