#pragma once

#include <windows.h>

namespace tarvo {

/// Milliseconds on the system's finest clock, the same one in every process.
inline double Now() {
  LARGE_INTEGER count, frequency;
  QueryPerformanceCounter(&count);
  QueryPerformanceFrequency(&frequency);
  return static_cast<double>(count.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

}  // namespace tarvo
