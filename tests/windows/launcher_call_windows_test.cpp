#include "platform/windows/launcher_call_windows.h"

#include <gtest/gtest.h>

#include "platform/windows/instance_lock_windows.h"
#include "platform/windows/process_rights.h"

namespace tarvo {
namespace {

constexpr char kAddress[] = "0123456789abcdef0123456789abcdef";

/// A line that a caller has laid, by hand.
KernelHandle LaidLine(DWORD room) {
  return KernelHandle(
      CreateNamedPipeA((std::string("\\\\.\\pipe\\TarvoLauncherAnswer_") + kAddress).c_str(),
                       PIPE_ACCESS_INBOUND | FILE_FLAG_FIRST_PIPE_INSTANCE,
                       PIPE_TYPE_BYTE | PIPE_NOWAIT, 1, 0, room, 0, nullptr));
}

std::string Arrived(const KernelHandle& pipe) {
  char text[8192] = {};
  DWORD size = 0;
  return ReadFile(pipe.Get(), text, sizeof text, &size, nullptr) ? std::string(text, size) : "";
}

TEST(AnswerLinesWindowsTest, WhatIsSentArrivesThoughTheSenderIsGone) {
  const KernelHandle pipe = LaidLine(4096);
  ASSERT_TRUE(pipe.Valid());
  {
    const auto line = WindowsAnswerLines().Open(kAddress);
    ASSERT_TRUE(line);
    EXPECT_FALSE(line->CallerHasLessRights());
    line->Send("the answer");
  }
  EXPECT_EQ(Arrived(pipe), "the answer");
}

TEST(AnswerLinesWindowsTest, ALineThatNobodyHasLaidIsNone) {
  EXPECT_FALSE(WindowsAnswerLines().Open(kAddress));
}

TEST(AnswerLinesWindowsTest, AnAddressHasItsForm) {
  const KernelHandle pipe = LaidLine(4096);
  for (const char* address :
       {"", "0123456789abcdef0123456789abcde", "0123456789abcdef0123456789abcdefa",
        "0123456789ABCDEF0123456789abcdef", "0123456789abcdef\\123456789abcdef",
        "0123456789abcdef/../6789abcdef01"}) {
    EXPECT_FALSE(WindowsAnswerLines().Open(address)) << address;
  }
}

TEST(AnswerLinesWindowsTest, ACallerWhoDoesNotReadIsNotWaitedFor) {
  const KernelHandle pipe = LaidLine(16);
  const auto line = WindowsAnswerLines().Open(kAddress);
  ASSERT_TRUE(line);
  const DWORD begun = GetTickCount();
  line->Send(std::string(60000, 'x'));
  EXPECT_LT(GetTickCount() - begun, 500U);
}

TEST(LauncherCallWindowsTest, WithoutALauncherThereIsNoneToCall) {
  const CallResult result = WindowsLauncherCall().Call("tarvo_test_call", "record", 1000);
  EXPECT_EQ(result.end, CallEnd::NoLauncher);
}

TEST(LauncherCallWindowsTest, ALauncherWithoutAWindowIsNotReached) {
  WindowsInstanceLock lock;
  ASSERT_TRUE(lock.Acquire("tarvo_test_call"));
  const DWORD begun = GetTickCount();
  const CallResult result = WindowsLauncherCall().Call("tarvo_test_call", "record", 500);
  EXPECT_EQ(result.end, CallEnd::NotReached);
  EXPECT_GE(GetTickCount() - begun, 400U);
  EXPECT_TRUE(IsLockHeld("tarvo_test_call"));
  EXPECT_FALSE(IsLockHeld("tarvo_test_call_2"));
}

TEST(ProcessRightsTest, WhoHasLessThanAnother) {
  constexpr DWORD kLow = SECURITY_MANDATORY_LOW_RID;
  constexpr DWORD kMedium = SECURITY_MANDATORY_MEDIUM_RID;
  constexpr DWORD kHigh = SECURITY_MANDATORY_HIGH_RID;
  EXPECT_TRUE(HasLessRights(kMedium, kHigh));
  EXPECT_TRUE(HasLessRights(kLow, kHigh));
  EXPECT_TRUE(HasLessRights(std::nullopt, kHigh)) << "may be anybody";
  EXPECT_FALSE(HasLessRights(kHigh, kHigh));
  EXPECT_FALSE(HasLessRights(kHigh, kMedium));
  EXPECT_FALSE(HasLessRights(std::nullopt, kMedium)) << "the system lets no less through";
  EXPECT_FALSE(HasLessRights(std::nullopt, std::nullopt));
}

TEST(ProcessRightsTest, ThisProcessHasALevel) {
  const auto own = IntegrityOf(GetCurrentProcess());
  ASSERT_TRUE(own.has_value());
  EXPECT_EQ(HasMoreRightsThanUsual(), *own > SECURITY_MANDATORY_MEDIUM_RID);
}

}  // namespace
}  // namespace tarvo
