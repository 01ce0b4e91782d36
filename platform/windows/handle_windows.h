#pragma once

#include <windows.h>

#include <utility>

namespace tarvo {

/// Owns one system handle: closes it exactly once, when it is destroyed, replaced or assigned to.
/// It moves and never copies; what it moved from owns nothing. `Traits` says which value type the
/// handle has, which values mean none, and how one is closed.
template <typename Traits>
class UniqueHandle {
 public:
  using Value = typename Traits::Value;

  UniqueHandle() = default;
  /// Takes the handle over; a value that means none is welcome.
  explicit UniqueHandle(Value value) : value_(value) {}
  UniqueHandle(UniqueHandle&& other) noexcept : value_(other.Release()) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    if (this != &other) Reset(other.Release());
    return *this;
  }
  UniqueHandle(const UniqueHandle&) = delete;
  UniqueHandle& operator=(const UniqueHandle&) = delete;
  ~UniqueHandle() { Reset(); }

  bool Valid() const { return !Traits::IsNone(value_); }
  Value Get() const { return value_; }

  /// Gives the handle away: the caller closes it.
  Value Release() { return std::exchange(value_, Value{}); }

  /// Closes what is owned and takes `value` over.
  void Reset(Value value = Value{}) {
    const Value old = std::exchange(value_, value);
    if (!Traits::IsNone(old)) Traits::Close(old);
  }

  /// Closes what is owned, and lets a system call put a new handle here.
  Value* Receive() {
    Reset();
    return &value_;
  }

 private:
  Value value_{};
};

/// Files, processes, snapshots, mutexes: some calls fail with null, others with -1.
struct KernelHandleTraits {
  using Value = HANDLE;
  static bool IsNone(Value value) { return value == nullptr || value == INVALID_HANDLE_VALUE; }
  static void Close(Value value) { CloseHandle(value); }
};

struct RegistryKeyTraits {
  using Value = HKEY;
  static bool IsNone(Value value) { return value == nullptr; }
  static void Close(Value value) { RegCloseKey(value); }
};

struct FindHandleTraits {
  using Value = HANDLE;
  static bool IsNone(Value value) { return value == nullptr || value == INVALID_HANDLE_VALUE; }
  static void Close(Value value) { FindClose(value); }
};

using KernelHandle = UniqueHandle<KernelHandleTraits>;
using RegistryKey = UniqueHandle<RegistryKeyTraits>;
using FindHandle = UniqueHandle<FindHandleTraits>;

}  // namespace tarvo
