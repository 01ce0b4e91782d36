#include "platform/windows/handle_windows.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarvo {
namespace {

/// Numbers instead of handles: 0 and -1 mean none, every close is written down.
struct RecordingTraits {
  using Value = int;
  static inline std::vector<int> closed;
  static bool IsNone(Value value) { return value == 0 || value == -1; }
  static void Close(Value value) { closed.push_back(value); }
};
using Recorded = UniqueHandle<RecordingTraits>;
using Closed = std::vector<int>;

class UniqueHandleTest : public testing::Test {
 protected:
  UniqueHandleTest() { RecordingTraits::closed.clear(); }
  const Closed& AllClosed() const { return RecordingTraits::closed; }
};

TEST_F(UniqueHandleTest, ClosesOnceAtTheEndOfItsScope) {
  {
    const Recorded handle(7);
    EXPECT_TRUE(handle.Valid());
    EXPECT_EQ(handle.Get(), 7);
    EXPECT_EQ(AllClosed(), Closed{});
  }
  EXPECT_EQ(AllClosed(), Closed{7});
}

TEST_F(UniqueHandleTest, ClosesNothingWhereThereIsNone) {
  for (const int none : {0, -1}) {
    const Recorded handle(none);
    EXPECT_FALSE(handle.Valid()) << none;
  }
  { const Recorded handle; }
  EXPECT_EQ(AllClosed(), Closed{});
}

TEST_F(UniqueHandleTest, MovesWithoutClosing) {
  Recorded first(7);
  {
    const Recorded second(std::move(first));
    EXPECT_EQ(second.Get(), 7);
    EXPECT_EQ(AllClosed(), Closed{});
  }
  EXPECT_EQ(AllClosed(), Closed{7});
}

TEST_F(UniqueHandleTest, MoveAssignmentClosesWhatItReplaces) {
  {
    Recorded first(7);
    Recorded second(8);
    first = std::move(second);
    EXPECT_EQ(first.Get(), 8);
    EXPECT_EQ(AllClosed(), Closed{7});
  }
  EXPECT_EQ(AllClosed(), (Closed{7, 8}));
}

TEST_F(UniqueHandleTest, AssignedToItselfItKeepsWhatItOwns) {
  {
    Recorded handle(7);
    Recorded& same = handle;
    handle = std::move(same);
    EXPECT_EQ(handle.Get(), 7);
    EXPECT_EQ(AllClosed(), Closed{});
  }
  EXPECT_EQ(AllClosed(), Closed{7});
}

TEST_F(UniqueHandleTest, ReleaseGivesTheHandleAway) {
  {
    Recorded handle(7);
    EXPECT_EQ(handle.Release(), 7);
    EXPECT_FALSE(handle.Valid());
  }
  EXPECT_EQ(AllClosed(), Closed{});
}

TEST_F(UniqueHandleTest, ResetAndReceiveCloseTheOldHandle) {
  {
    Recorded handle(7);
    handle.Reset(8);
    EXPECT_EQ(AllClosed(), Closed{7});
    *handle.Receive() = 9;
    EXPECT_EQ(AllClosed(), (Closed{7, 8}));
    EXPECT_EQ(handle.Get(), 9);
  }
  EXPECT_EQ(AllClosed(), (Closed{7, 8, 9}));
}

TEST(KernelHandleTest, ReallyClosesTheHandle) {
  HANDLE raw = CreateEventA(nullptr, TRUE, FALSE, nullptr);
  ASSERT_NE(raw, nullptr);
  { const KernelHandle handle(raw); }
  DWORD flags = 0;
  EXPECT_EQ(GetHandleInformation(raw, &flags), 0);
}

}  // namespace
}  // namespace tarvo
