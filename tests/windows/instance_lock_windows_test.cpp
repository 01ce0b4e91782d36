#include "platform/windows/instance_lock_windows.h"

#include <gtest/gtest.h>

#include "platform/windows/processes_windows.h"
#include "tests/windows/child_roles.h"
#include "tests/windows/test_folder.h"

namespace tarvo {
namespace {

/// Each test has a name of its own for the lock, so that none meets what another left.
class WindowsInstanceLockTest : public testing::Test {
 protected:
  WindowsInstanceLockTest()
      : name_(std::string(testing::UnitTest::GetInstance()->current_test_info()->name()) + "_" +
              std::to_string(GetCurrentProcessId())) {}
  ~WindowsInstanceLockTest() override { EndHolder(); }

  /// Starts another process that takes the lock, and waits until it has it.
  void StartHolder(const std::string& verb) {
    SetEnvironmentVariableA(test::kRoleVariable, (verb + " " + name_).c_str());
    const ProcessId id = WindowsProcesses().LaunchHidden(test::OwnPath()).id;
    SetEnvironmentVariableA(test::kRoleVariable, nullptr);
    ASSERT_NE(id, 0U);
    holder_.Reset(OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, id));
    const std::string sign = folder_.File(name_ + ".held");
    ASSERT_TRUE(test::Within(
        5000, [&] { return GetFileAttributesA(sign.c_str()) != INVALID_FILE_ATTRIBUTES; }));
  }
  void EndHolder() {
    if (!holder_.Valid()) return;
    TerminateProcess(holder_.Get(), 0);
    WaitForSingleObject(holder_.Get(), 5000);
  }

  test::TestFolder folder_;
  std::string name_;
  KernelHandle holder_;
  WindowsInstanceLock lock_;
};

TEST_F(WindowsInstanceLockTest, AFreeLockIsTakenAtOnce) {
  const DWORD start = GetTickCount();
  EXPECT_TRUE(lock_.Acquire(name_));
  EXPECT_TRUE(lock_.Acquire(name_ + "_of_another_root"));
  EXPECT_LT(GetTickCount() - start, 500U);
}

TEST_F(WindowsInstanceLockTest, ASecondProcessIsKeptOutAndShowsTheFirst) {
  StartHolder("hold-window");
  const HWND window = FindWindowA("TarvoTestHolder", nullptr);
  ASSERT_NE(window, nullptr);
  ASSERT_EQ(IsWindowVisible(window), 0);
  EXPECT_FALSE(lock_.Acquire(name_));
  EXPECT_EQ(lock_.ShowHolder(name_), HolderShown::Yes);
  EXPECT_TRUE(test::Within(3000, [&] { return IsWindowVisible(window) != 0; }));
}

TEST_F(WindowsInstanceLockTest, AMinimizedHolderIsRestored) {
  StartHolder("hold-window");
  const HWND window = FindWindowA("TarvoTestHolder", nullptr);
  ShowWindow(window, SW_SHOWMINIMIZED);
  ASSERT_NE(IsIconic(window), 0);
  EXPECT_EQ(lock_.ShowHolder(name_), HolderShown::Yes);
  EXPECT_TRUE(test::Within(3000, [&] { return IsIconic(window) == 0; }));
}

TEST_F(WindowsInstanceLockTest, AHolderWithoutAWindowIsWaitedForThreeSeconds) {
  StartHolder("hold");
  const DWORD start = GetTickCount();
  EXPECT_FALSE(lock_.Acquire(name_));
  const DWORD waited = GetTickCount() - start;
  EXPECT_GE(waited, 2900U);
  EXPECT_LT(waited, 6000U);
  EXPECT_EQ(lock_.ShowHolder(name_), HolderShown::NoWindow);
}

TEST_F(WindowsInstanceLockTest, AHolderThatIsEndingLeavesTheLockToTheNext) {
  StartHolder("hold-briefly");
  EXPECT_TRUE(lock_.Acquire(name_));
}

TEST_F(WindowsInstanceLockTest, AKilledHolderLeavesTheLockToTheNext) {
  StartHolder("hold-window");
  EndHolder();
  EXPECT_TRUE(lock_.Acquire(name_));
  EXPECT_EQ(lock_.ShowHolder(name_), HolderShown::NoWindow);
}

TEST_F(WindowsInstanceLockTest, ALockThatMayNotBeOpenedCountsAsHeld) {
  // As another user's would be: nobody has any right to it.
  ACL empty{};
  InitializeAcl(&empty, sizeof(empty), ACL_REVISION);
  SECURITY_DESCRIPTOR nobody{};
  InitializeSecurityDescriptor(&nobody, SECURITY_DESCRIPTOR_REVISION);
  SetSecurityDescriptorDacl(&nobody, TRUE, &empty, FALSE);
  SECURITY_ATTRIBUTES attributes{sizeof(attributes), &nobody, FALSE};
  const std::string mutexName = "Global\\TarvoLauncher_" + name_;
  const KernelHandle others(CreateMutexA(&attributes, FALSE, mutexName.c_str()));
  ASSERT_TRUE(others.Valid());
  EXPECT_FALSE(lock_.Acquire(name_));
  EXPECT_EQ(lock_.ShowHolder(name_), HolderShown::NotAllowed);
}

// Where programs are kept apart by their rights, a message to a window of one with more fails so.
TEST(HolderBehind, TellsFromTheErrorOfAMessage) {
  EXPECT_EQ(HolderBehind(ERROR_SUCCESS), HolderShown::Yes);
  EXPECT_EQ(HolderBehind(ERROR_ACCESS_DENIED), HolderShown::NotAllowed);
  EXPECT_EQ(HolderBehind(ERROR_INVALID_WINDOW_HANDLE), HolderShown::NoWindow);
  EXPECT_EQ(HolderBehind(ERROR_NOT_ENOUGH_QUOTA), HolderShown::Yes);
}

}  // namespace
}  // namespace tarvo
