#include "platform/windows/system_libraries.h"

#include <string>

namespace tarvo {
namespace {

using SetDirectoriesCall = BOOL(WINAPI*)(DWORD);

// Libraries of the system's windows load these by bare name, on older systems without regard to
// what is shut out. A library that is there already is not looked for.
constexpr const char* kLoadedBeforehand[] = {"uxtheme.dll", "msimg32.dll"};

void ShutOutOtherFolders() {
  // kernel32 is always there already, so nothing is searched for.
  const auto set = reinterpret_cast<SetDirectoriesCall>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleA("kernel32.dll"), "SetDefaultDllDirectories")));
  if (set && set(LOAD_LIBRARY_SEARCH_SYSTEM32)) return;
  SetDllDirectoryA("");
}

}  // namespace

void LoadFromSystemFolderOnly(bool opensWindows) {
  ShutOutOtherFolders();
  if (!opensWindows) return;
  for (const char* name : kLoadedBeforehand) LoadSystemLibrary(name);
}

HMODULE LoadSystemLibrary(const char* name) {
  const HMODULE library = LoadLibraryExA(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  if (library || GetLastError() != ERROR_INVALID_PARAMETER) return library;
  return LoadByWholePath(name);
}

HMODULE LoadByWholePath(const char* name) {
  char folder[MAX_PATH] = {};
  const UINT length = GetSystemDirectoryA(folder, MAX_PATH);
  if (length == 0 || length >= MAX_PATH) return nullptr;
  const std::string path = std::string(folder, length) + "\\" + name;
  return LoadLibraryExA(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

}  // namespace tarvo
