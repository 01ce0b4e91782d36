#pragma once

#include <cstddef>

namespace tarvo {

/// Lets one allocation fail while it lives: that behind the given number of those that succeed. It
/// sees every operator new of the program, those within the standard library too, and what the
/// program's own objects ask of malloc, calloc and realloc; the linker sends those calls here.
class ScarceMemory {
 public:
  explicit ScarceMemory(int allocations);
  ~ScarceMemory();
  ScarceMemory(const ScarceMemory&) = delete;
  ScarceMemory& operator=(const ScarceMemory&) = delete;

  /// Whether that allocation has come, and failed.
  bool Failed() const;
};

/// Blocks of memory that are in use, counted where ScarceMemory sees them.
std::size_t BlocksInUse();

}  // namespace tarvo
