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

/// A launcher's window that looks who may write into the line that it is given.
struct LookingLauncher {
  static LRESULT CALLBACK Handle(HWND window, UINT message, WPARAM w, LPARAM l) {
    if (message != WM_COPYDATA) return DefWindowProcA(window, message, w, l);
    const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(l);
    const std::string address(static_cast<const char*>(data->lpData), kAddressLength);
    const KernelHandle pipe(CreateFileA(("\\\\.\\pipe\\TarvoLauncherAnswer_" + address).c_str(),
                                        GENERIC_WRITE | READ_CONTROL, 0, nullptr, OPEN_EXISTING, 0,
                                        nullptr));
    DWORD size = 0;
    GetKernelObjectSecurity(pipe.Get(), DACL_SECURITY_INFORMATION, rights, sizeof rights, &size);
    WriteFile(pipe.Get(), "x", 1, &size, nullptr);
    return TRUE;
  }
  alignas(8) static inline BYTE rights[4096] = {};
};

// What an administrator's program makes is closed to the launcher of the same user by itself.
TEST(LauncherCallWindowsTest, TheLineIsOpenToItsUserHimself) {
  WNDCLASSA looks{};
  looks.lpfnWndProc = &LookingLauncher::Handle;
  looks.lpszClassName = "LookingLauncher";
  RegisterClassA(&looks);
  const HWND window = CreateWindowExA(0, looks.lpszClassName, "", WS_OVERLAPPEDWINDOW, 0, 0, 9, 9,
                                      nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(window, nullptr);
  {
    WindowsInstanceLock lock;
    ASSERT_TRUE(lock.Acquire("tarvo_test_call"));
    lock.Publish("tarvo_test_call", reinterpret_cast<std::intptr_t>(window));
    EXPECT_EQ(WindowsLauncherCall().Call("tarvo_test_call", "record", 5000).answer, "x");
  }
  DestroyWindow(window);
  KernelHandle token;
  ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, token.Receive()));
  alignas(8) BYTE user[256] = {};
  DWORD size = 0;
  ASSERT_TRUE(GetTokenInformation(token.Get(), TokenUser, user, sizeof user, &size));
  ACL* list = nullptr;
  BOOL has = FALSE;
  BOOL byDefault = FALSE;
  ASSERT_TRUE(GetSecurityDescriptorDacl(LookingLauncher::rights, &has, &list, &byDefault));
  ASSERT_TRUE(has && list != nullptr);
  EXPECT_EQ(list->AceCount, 3);
  int own = 0;
  for (DWORD i = 0; i < list->AceCount; ++i) {
    ACCESS_ALLOWED_ACE* entry = nullptr;
    ASSERT_TRUE(GetAce(list, i, reinterpret_cast<void**>(&entry)));
    const bool writes = (entry->Mask & FILE_GENERIC_WRITE) == FILE_GENERIC_WRITE;
    if (writes && EqualSid(&entry->SidStart, reinterpret_cast<TOKEN_USER*>(user)->User.Sid)) ++own;
  }
  EXPECT_EQ(own, 1);
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
