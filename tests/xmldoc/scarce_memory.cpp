#include "scarce_memory.h"

#include <cstddef>
#include <new>

namespace {

constexpr int kPlenty = -1;
int left = kPlenty;

bool Fails() { return left != kPlenty && left-- == 0; }

}  // namespace

extern "C" {

void* __real_malloc(std::size_t bytes);
void* __real_realloc(void* memory, std::size_t bytes);
void* __real__Znwm(std::size_t bytes);

void* __wrap_malloc(std::size_t bytes) { return Fails() ? nullptr : __real_malloc(bytes); }
void* __wrap_realloc(void* memory, std::size_t bytes) {
  return Fails() ? nullptr : __real_realloc(memory, bytes);
}
void* __wrap__Znwm(std::size_t bytes) {
  if (Fails()) throw std::bad_alloc();
  return __real__Znwm(bytes);
}
}

namespace tarvo {

ScarceMemory::ScarceMemory(int allocations) { left = allocations; }
ScarceMemory::~ScarceMemory() { left = kPlenty; }

}  // namespace tarvo
