#include "platform/windows/stack_guard.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "tests/windows/child_roles.h"
#include "tests/windows/test_folder.h"

namespace tarvo {
namespace {

TEST(StackGuardTest, AFunctionThatOverrunsItsArrayEndsTheProcess) {
  EXPECT_EQ(test::ExitCodeOf("overrun 16"), 0U);
  EXPECT_EQ(test::ExitCodeOf("overrun 32"), 0xC0000409);
}

TEST(StackGuardTest, EachProcessDrawsItsOwn) {
  const test::TestFolder folder;
  std::string guards[2];
  for (std::string& guard : guards) {
    const std::string file = folder.File("guard");
    ASSERT_EQ(test::ExitCodeOf("guard " + file), 0U);
    guard = test::BytesOf(file);
  }
  EXPECT_NE(guards[0], guards[1]);
  EXPECT_NE(guards[0], "0");
  EXPECT_EQ(std::stoull(guards[0]) & 0xFF, 0U);
}

}  // namespace
}  // namespace tarvo
