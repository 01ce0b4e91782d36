#include "platform/windows/instance_lock_windows.h"

namespace tarvo {
namespace {

constexpr DWORD kLongestWait = 3000;
constexpr DWORD kShortestWait = 500;
constexpr DWORD kStep = 100;

std::string MutexName(const std::string& name) { return "Global\\TarvoLauncher_" + name; }
// A message that means nothing to anybody; WM_NULL would pass where others are held back.
UINT KnockMessage() { return RegisterWindowMessageA("TarvoLauncherKnock"); }

std::string PropertyName(const std::string& name) { return "TarvoLauncher_" + name; }

struct Search {
  std::string property;
  HWND found;
};

BOOL CALLBACK StopAtPublished(HWND window, LPARAM argument) noexcept {
  auto& search = *reinterpret_cast<Search*>(argument);
  if (GetPropA(window, search.property.c_str()) == nullptr) return TRUE;
  search.found = window;
  return FALSE;
}

bool Take(const KernelHandle& mutex) {
  const DWORD result = WaitForSingleObject(mutex.Get(), 0);
  return result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
}

}  // namespace

HWND PublishedWindow(const std::string& name) {
  Search search{PropertyName(name), nullptr};
  EnumWindows(&StopAtPublished, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

bool IsLockHeld(const std::string& name) {
  const KernelHandle mutex(OpenMutexA(SYNCHRONIZE, FALSE, MutexName(name).c_str()));
  return mutex.Valid() || GetLastError() == ERROR_ACCESS_DENIED;
}

HolderShown HolderBehind(DWORD error) {
  switch (error) {
    case ERROR_ACCESS_DENIED:
      return HolderShown::NotAllowed;
    case ERROR_INVALID_WINDOW_HANDLE:
      return HolderShown::NoWindow;
    default:
      return HolderShown::Yes;  // A full queue, for one: it hangs, and is shown once it goes on.
  }
}

bool WindowsInstanceLock::Acquire(const std::string& name) {
  const ULONGLONG begin = GetTickCount64();
  for (ULONGLONG waited = 0; waited <= kLongestWait; waited = GetTickCount64() - begin) {
    // Opened again at each step: another user's mutex can be had once he is gone.
    KernelHandle mutex(CreateMutexA(nullptr, FALSE, MutexName(name).c_str()));
    refused_ = !mutex.Valid() && GetLastError() == ERROR_ACCESS_DENIED;
    if (mutex.Valid() && Take(mutex)) {
      held_.push_back(std::move(mutex));
      return true;
    }
    if (waited >= kShortestWait && PublishedWindow(name) != nullptr) return false;
    Sleep(kStep);
  }
  return false;
}

HolderShown WindowsInstanceLock::ShowHolder(const std::string& name) {
  const HWND window = PublishedWindow(name);
  if (window == nullptr) return refused_ ? HolderShown::NotAllowed : HolderShown::NoWindow;
  const bool heard = PostMessageA(window, KnockMessage(), 0, 0) != FALSE;
  const HolderShown holder = HolderBehind(heard ? ERROR_SUCCESS : GetLastError());
  if (holder != HolderShown::Yes) return holder;
  // Not waited for: the holder may be busy with a probe.
  ShowWindowAsync(window, IsIconic(window) != 0 ? SW_RESTORE : SW_SHOW);
  SetForegroundWindow(window);
  return HolderShown::Yes;
}

void WindowsInstanceLock::Publish(const std::string& name, std::intptr_t window) {
  const HWND native = reinterpret_cast<HWND>(window);
  SetPropA(native, PropertyName(name).c_str(), native);
}

}  // namespace tarvo
