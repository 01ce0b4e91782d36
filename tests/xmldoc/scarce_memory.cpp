#include "scarce_memory.h"

#include <cstddef>
#include <new>

namespace {

constexpr int kPlenty = -1;
constexpr int kHasFailed = -2;
int left = kPlenty;
std::size_t inUse = 0;

bool Fails() {
  if (left < 0) return false;
  if (left-- > 0) return false;
  left = kHasFailed;
  return true;
}

void* Counted(void* memory) {
  inUse += memory != nullptr ? 1 : 0;
  return memory;
}

}  // namespace

extern "C" {

void* __real_malloc(std::size_t bytes);
void* __real_calloc(std::size_t count, std::size_t bytes);
void* __real_realloc(void* memory, std::size_t bytes);
void __real_free(void* memory);

void* __wrap_malloc(std::size_t bytes) { return Fails() ? nullptr : Counted(__real_malloc(bytes)); }
void* __wrap_calloc(std::size_t count, std::size_t bytes) {
  return Fails() ? nullptr : Counted(__real_calloc(count, bytes));
}
void* __wrap_realloc(void* memory, std::size_t bytes) {
  if (memory == nullptr) return __wrap_malloc(bytes);
  return Fails() ? nullptr : __real_realloc(memory, bytes);
}
void __wrap_free(void* memory) {
  inUse -= memory != nullptr ? 1 : 0;
  __real_free(memory);
}
}

// All forms, since a sanitizer brings its own for each that is missing here.
void* operator new(std::size_t bytes) {
  void* memory = __wrap_malloc(bytes);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
void* operator new[](std::size_t bytes) { return operator new(bytes); }
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
  return __wrap_malloc(bytes);
}
void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept {
  return __wrap_malloc(bytes);
}
void operator delete(void* memory) noexcept { __wrap_free(memory); }
void operator delete[](void* memory) noexcept { __wrap_free(memory); }
void operator delete(void* memory, std::size_t) noexcept { __wrap_free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { __wrap_free(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { __wrap_free(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { __wrap_free(memory); }

namespace tarvo {

ScarceMemory::ScarceMemory(int allocations) { left = allocations; }
ScarceMemory::~ScarceMemory() { left = kPlenty; }
bool ScarceMemory::Failed() const { return left == kHasFailed; }

std::size_t BlocksInUse() { return inUse; }

}  // namespace tarvo
