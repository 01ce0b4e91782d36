#include "platform/windows/fault_guard.h"

#include <gtest/gtest.h>

#include "tests/windows/child_roles.h"

namespace tarvo {
namespace {

// Where it goes on into the system's code it may be swallowed, and the program lives on half.
TEST(FaultGuardTest, AnExceptionOutOfAWindowsProcedureEndsTheProcess) {
  EXPECT_EQ(test::ExitCodeOf("throw other"), 0x40000015U);
  EXPECT_EQ(test::ExitCodeOf("throw memory"), 0xC0000017U);
}

}  // namespace
}  // namespace tarvo
