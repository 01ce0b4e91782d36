#include "platform/windows/stack_guard.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "tests/windows/child_roles.h"
#include "tests/windows/test_folder.h"

namespace tarvo {
namespace {

/// The exit code of this program in that role.
DWORD ExitCodeOf(const std::string& role) {
  SetEnvironmentVariableA(test::kRoleVariable, role.c_str());
  STARTUPINFOA start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION made{};
  const BOOL started = CreateProcessA(test::OwnPath().c_str(), nullptr, nullptr, nullptr, FALSE, 0,
                                      nullptr, nullptr, &start, &made);
  SetEnvironmentVariableA(test::kRoleVariable, nullptr);
  if (!started) return 1;
  DWORD code = 1;
  if (WaitForSingleObject(made.hProcess, 10000) != WAIT_OBJECT_0) {
    TerminateProcess(made.hProcess, 1);
    WaitForSingleObject(made.hProcess, 10000);
  }
  GetExitCodeProcess(made.hProcess, &code);
  CloseHandle(made.hThread);
  CloseHandle(made.hProcess);
  return code;
}

TEST(StackGuardTest, AFunctionThatOverrunsItsArrayEndsTheProcess) {
  EXPECT_EQ(ExitCodeOf("overrun 16"), 0U);
  EXPECT_EQ(ExitCodeOf("overrun 32"), 0xC0000409);
}

TEST(StackGuardTest, EachProcessDrawsItsOwn) {
  const test::TestFolder folder;
  std::string guards[2];
  for (std::string& guard : guards) {
    const std::string file = folder.File("guard");
    ASSERT_EQ(ExitCodeOf("guard " + file), 0U);
    guard = test::BytesOf(file);
  }
  EXPECT_NE(guards[0], guards[1]);
  EXPECT_NE(guards[0], "0");
  EXPECT_EQ(std::stoull(guards[0]) & 0xFF, 0U);
}

}  // namespace
}  // namespace tarvo
