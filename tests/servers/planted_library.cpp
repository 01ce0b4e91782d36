// The library of a game server that is named like one of the system's: the tests copy it under such
// names. Whoever loads it is betrayed by a file beside it, "<library>.loaded-by-<program>".

#include <windows.h>

#include <string>

namespace {

std::string PathOf(HMODULE module) {
  char path[MAX_PATH] = {};
  return {path, GetModuleFileNameA(module, path, MAX_PATH)};
}

void Betray(HMODULE library) {
  const std::string program = PathOf(nullptr);
  const std::string mark =
      PathOf(library) + ".loaded-by-" + program.substr(program.rfind('\\') + 1);
  const HANDLE file = CreateFileA(mark.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) Betray(library);
  return TRUE;
}
