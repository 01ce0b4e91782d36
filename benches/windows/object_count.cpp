#include "benches/windows/object_count.h"

#include <windows.h>
// After windows.h, which it needs.
#include <winternl.h>

#include <cstdint>
#include <vector>

namespace tarvo {
namespace {

// An entry of the table of GDI handles that a process's environment block points to; 24 bytes in a
// 64-bit program.
struct GdiEntry {
  std::uint64_t object;
  std::uint16_t owner;
  std::uint16_t count;
  std::uint16_t unique;
  std::uint8_t type;
  std::uint8_t flags;
  std::uint64_t user;
};
static_assert(sizeof(GdiEntry) == 24);

struct WindowCount {
  DWORD process;
  int count;
};

BOOL CALLBACK CountWindow(HWND window, LPARAM argument) {
  auto& windows = *reinterpret_cast<WindowCount*>(argument);
  DWORD owner = 0;
  GetWindowThreadProcessId(window, &owner);
  if (owner == windows.process) ++windows.count;
  return TRUE;
}

BOOL CALLBACK CountFamily(HWND window, LPARAM argument) {
  CountWindow(window, argument);
  EnumChildWindows(window, CountWindow, argument);
  return TRUE;
}

}  // namespace

int CountGdiObjects(DWORD processId) {
  constexpr std::size_t kTableOffset = 0xF8;  // GdiSharedHandleTable in the 64-bit block.
  constexpr std::size_t kTableSize = 0x4000;
  const HANDLE process = OpenProcess(PROCESS_VM_READ | PROCESS_QUERY_INFORMATION, FALSE, processId);
  PROCESS_BASIC_INFORMATION basic{};
  NtQueryInformationProcess(process, ProcessBasicInformation, &basic, sizeof basic, nullptr);
  void* table = nullptr;
  ReadProcessMemory(process, reinterpret_cast<char*>(basic.PebBaseAddress) + kTableOffset, &table,
                    sizeof table, nullptr);
  std::vector<GdiEntry> entries(kTableSize);
  SIZE_T read = 0;
  ReadProcessMemory(process, table, entries.data(), entries.size() * sizeof(GdiEntry), &read);
  CloseHandle(process);
  int count = 0;
  for (std::size_t i = 0; i < read / sizeof(GdiEntry); ++i) count += entries[i].type != 0 ? 1 : 0;
  return count;
}

int CountWindows(DWORD process) {
  WindowCount windows{process, 0};
  EnumWindows(CountFamily, reinterpret_cast<LPARAM>(&windows));
  return windows.count;
}

namespace {

bool IsIcon(HICON handle) {
  ICONINFO info{};
  if (!GetIconInfo(handle, &info)) return false;
  DeleteObject(info.hbmMask);
  if (info.hbmColor) DeleteObject(info.hbmColor);
  return true;
}

}  // namespace

int CountUserObjects() {
  constexpr UINT_PTR kFirst = 0x20;
  constexpr UINT_PTR kEnd = 0x10000;
  int count = CountWindows(GetCurrentProcessId());
  // The lower word names the object, the upper one only whose turn it is to use the place.
  for (UINT_PTR handle = kFirst; handle < kEnd; handle += 2) {
    if (IsMenu(reinterpret_cast<HMENU>(handle)) || IsIcon(reinterpret_cast<HICON>(handle))) ++count;
  }
  return count;
}

}  // namespace tarvo
