#include "platform/windows/instance_lock_windows.h"

namespace tarvo {
namespace {

constexpr DWORD kLongestWait = 3000;
constexpr DWORD kShortestWait = 500;
constexpr DWORD kStep = 100;

std::string MutexName(const std::string& name) { return "Global\\TarvoLauncher_" + name; }
std::string PropertyName(const std::string& name) { return "TarvoLauncher_" + name; }

struct Search {
  std::string property;
  HWND found;
};

BOOL CALLBACK StopAtPublished(HWND window, LPARAM argument) {
  auto& search = *reinterpret_cast<Search*>(argument);
  if (GetPropA(window, search.property.c_str()) == nullptr) return TRUE;
  search.found = window;
  return FALSE;
}

HWND PublishedWindow(const std::string& name) {
  Search search{PropertyName(name), nullptr};
  EnumWindows(&StopAtPublished, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

bool Take(const KernelHandle& mutex) {
  const DWORD result = WaitForSingleObject(mutex.Get(), 0);
  return result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
}

}  // namespace

bool WindowsInstanceLock::Acquire(const std::string& name) {
  for (DWORD waited = 0; waited <= kLongestWait; waited += kStep) {
    // Opened anew at each step: another user's mutex can be had once he is gone.
    KernelHandle mutex(CreateMutexA(nullptr, FALSE, MutexName(name).c_str()));
    if (mutex.Valid() && Take(mutex)) {
      held_.push_back(std::move(mutex));
      return true;
    }
    if (waited >= kShortestWait && PublishedWindow(name) != nullptr) return false;
    Sleep(kStep);
  }
  return false;
}

bool WindowsInstanceLock::ShowHolder(const std::string& name) {
  const HWND window = PublishedWindow(name);
  if (window == nullptr) return false;
  // Not waited for: the holder may be busy with a probe.
  ShowWindowAsync(window, IsIconic(window) != 0 ? SW_RESTORE : SW_SHOW);
  SetForegroundWindow(window);
  return true;
}

void WindowsInstanceLock::Publish(const std::string& name, std::intptr_t window) {
  const HWND native = reinterpret_cast<HWND>(window);
  SetPropA(native, PropertyName(name).c_str(), native);
}

}  // namespace tarvo
