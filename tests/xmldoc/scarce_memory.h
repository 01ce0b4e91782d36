#pragma once

namespace tarvo {

/// Lets one allocation fail while it lives: that behind the given number of those that succeed. It
/// sees what the program's own objects ask of malloc, realloc and operator new; the linker sends
/// those calls here.
class ScarceMemory {
 public:
  explicit ScarceMemory(int allocations);
  ~ScarceMemory();
  ScarceMemory(const ScarceMemory&) = delete;
  ScarceMemory& operator=(const ScarceMemory&) = delete;
};

}  // namespace tarvo
