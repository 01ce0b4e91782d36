#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <new>

#include "tests/xmldoc/scarce_memory.h"

namespace tarvo {

/// How an action ended while an allocation of its own failed.
enum class Ended { Whole, WithBadAlloc };

/// One run of a story, in which the allocation of a certain number fails.
class ScarceRun {
 public:
  explicit ScarceRun(int allocation) : allocation_(allocation) {}

  /// Does what the story is about, short of memory; what the story does beside it has plenty.
  /// Anything but std::bad_alloc comes out.
  template <typename Action>
  Ended Act(Action action) {
    ScarceMemory scarce(allocation_);
    Ended ended = Ended::Whole;
    try {
      action();
    } catch (const std::bad_alloc&) {
      ended = Ended::WithBadAlloc;
    }
    failed_ = scarce.Failed();
    return ended;
  }

  /// Whether the action came as far as that allocation.
  bool Failed() const { return failed_; }

 private:
  int allocation_;
  bool failed_ = false;
};

/// Plays a story again and again: the first allocation of its action fails, then the second, and so
/// on, until none fails any more. The story makes all that it uses, so that nothing may be left in
/// use behind it. Gives how many allocations the action has. With a `step` only every so many-th
/// fails, for stories that take their time.
inline int FailEachAllocation(const std::function<void(ScarceRun&)>& story, int step = 1) {
  constexpr int kNone = 1 << 30;
  ScarceRun first(kNone);  // what is made once for the whole program is made here
  story(first);
  for (int allocation = 0;; allocation += step) {
    SCOPED_TRACE("allocation " + std::to_string(allocation));
    ScarceRun run(allocation);
    const std::size_t before = BlocksInUse();
    story(run);
    if (::testing::Test::HasFailure()) return allocation;
    EXPECT_EQ(BlocksInUse(), before) << "something leaked";
    if (!run.Failed()) return allocation;
  }
}

}  // namespace tarvo
