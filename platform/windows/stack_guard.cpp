#include "platform/windows/stack_guard.h"

#include <windows.h>

std::uintptr_t __stack_chk_guard = 0;

namespace {

constexpr UINT kStackBufferOverrun = 0xC0000409;

std::uint64_t Mixed(std::uint64_t value) {
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EB;
  return value ^ (value >> 31);
}

/// The addresses are where the system has put program and stack this time.
[[gnu::constructor(101)]] void Draw() {
  LARGE_INTEGER counter{};
  FILETIME time{};
  QueryPerformanceCounter(&counter);
  GetSystemTimeAsFileTime(&time);
  const std::uint64_t parts[] = {
      __builtin_ia32_rdtsc(),
      static_cast<std::uint64_t>(counter.QuadPart),
      (std::uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime,
      reinterpret_cast<std::uintptr_t>(&counter),
      reinterpret_cast<std::uintptr_t>(&Draw),
      (std::uint64_t{GetCurrentProcessId()} << 32) | GetCurrentThreadId(),
      GetTickCount64(),
  };
  std::uint64_t drawn = 0;
  for (const std::uint64_t part : parts) drawn = Mixed(drawn + part + 0x9E3779B97F4A7C15);
  __stack_chk_guard = static_cast<std::uintptr_t>(drawn) & ~std::uintptr_t{0xFF};
}

}  // namespace

void __stack_chk_fail() {
  for (;;) TerminateProcess(GetCurrentProcess(), kStackBufferOverrun);
}
