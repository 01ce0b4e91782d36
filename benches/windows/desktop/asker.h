#pragma once

#include <windows.h>

#include <algorithm>

#include "benches/windows/desktop/stopwatch.h"

namespace tarvo {

/// Asks a window whether it is there, all the time, from a thread of its own.
class Asker {
 public:
  explicit Asker(HWND window)
      : window_(window), thread_(CreateThread(nullptr, 0, Ask, this, 0, nullptr)) {}
  ~Asker() {
    Stop();
    CloseHandle(thread_);
  }
  Asker(const Asker&) = delete;
  Asker& operator=(const Asker&) = delete;

  /// The longest that an answer took, in milliseconds; asks no more.
  double Worst() {
    Stop();
    return worst_;
  }

 private:
  static constexpr UINT kPatience = 20000;

  static DWORD WINAPI Ask(void* self) {
    auto& asker = *static_cast<Asker*>(self);
    DWORD_PTR answer = 0;
    while (InterlockedCompareExchange(&asker.ended_, 0, 0) == 0) {
      const double asked = Now();
      SendMessageTimeoutA(asker.window_, WM_NULL, 0, 0, SMTO_NORMAL, kPatience, &answer);
      asker.worst_ = std::max(asker.worst_, Now() - asked);
      Sleep(1);
    }
    return 0;
  }

  void Stop() {
    InterlockedExchange(&ended_, 1);
    // The window that is asked may be this thread's.
    MSG message{};
    while (MsgWaitForMultipleObjects(1, &thread_, FALSE, INFINITE, QS_SENDMESSAGE) !=
           WAIT_OBJECT_0) {
      PeekMessageA(&message, nullptr, WM_NULL, WM_NULL, PM_NOREMOVE);
    }
  }

  HWND window_;
  LONG ended_ = 0;
  double worst_ = 0;
  HANDLE thread_;
};

/// A window that has nothing to do, on a thread of its own: what the machine's other work makes of
/// its answers is no fault of the window that is measured.
class IdleWindow {
 public:
  IdleWindow() : thread_(CreateThread(nullptr, 0, Run, this, 0, nullptr)) {
    while (!InterlockedCompareExchangePointer(&window_, nullptr, nullptr)) Sleep(1);
  }
  ~IdleWindow() {
    PostMessageA(Window(), WM_QUIT, 0, 0);
    WaitForSingleObject(thread_, INFINITE);
    CloseHandle(thread_);
  }
  IdleWindow(const IdleWindow&) = delete;
  IdleWindow& operator=(const IdleWindow&) = delete;

  HWND Window() const { return static_cast<HWND>(window_); }

 private:
  static DWORD WINAPI Run(void* self) {
    const HWND window =
        CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    InterlockedExchangePointer(&static_cast<IdleWindow*>(self)->window_, window);
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
    DestroyWindow(window);
    return 0;
  }

  void* volatile window_ = nullptr;
  HANDLE thread_;
};

}  // namespace tarvo
