#include "platform/windows/file_copies_windows.h"

#include <gtest/gtest.h>

#include "platform/windows/handle_windows.h"
#include "platform/windows/processes_windows.h"
#include "platform/windows/system_message_windows.h"
#include "tests/windows/child_roles.h"
#include "tests/windows/running_server.h"
#include "tests/windows/test_folder.h"

namespace tarvo {
namespace {

using test::BytesOf;
using test::TestFolder;

KernelHandle OpenFile(const std::string& path, DWORD access, DWORD share) {
  return KernelHandle(CreateFileA(path.c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr));
}

/// Ticks of 100 ns since 1601.
void SetDate(const std::string& path, std::uint64_t ticks) {
  const KernelHandle file = OpenFile(path, FILE_WRITE_ATTRIBUTES, 7);
  const FILETIME time{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
  ASSERT_NE(SetFileTime(file.Get(), nullptr, nullptr, &time), 0);
}

bool IsThere(const std::string& path) {
  return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

/// Asked of the folder, without opening the file.
std::uint64_t SizeOf(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA data{};
  GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &data);
  return (static_cast<std::uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
}

class WindowsFileCopiesTest : public testing::Test {
 protected:
  std::optional<FileFault> Copy(const std::string& source, const std::string& target) {
    return copies_.CopyOver(folder_.File(source), folder_.File(target));
  }
  /// The kind of reason and its number; "done" when there was no fault.
  std::string Outcome(const std::optional<FileFault>& fault) {
    if (!fault) return "done";
    const char* const names[] = {"missing", "held", "disk full", "refused"};
    EXPECT_FALSE(fault->description.empty());
    return names[static_cast<int>(fault->trouble)];
  }
  void ExpectNothingBeside(const std::string& target) {
    EXPECT_FALSE(IsThere(folder_.File(target + ".tarvo-copy")));
  }

  TestFolder folder_;
  WindowsFileCopies copies_;
};

constexpr std::uint64_t kSecond = 10000000;
constexpr std::uint64_t kNewYear2026 = 134116992000000000;  // Universal time, since 1601.

TEST_F(WindowsFileCopiesTest, ReadsADateInUniversalTimeToTheSecond) {
  const std::string path = folder_.Write("a.exe", "MZ");
  SetDate(path, kNewYear2026 + 9 * kSecond + 9999999);
  std::chrono::sys_seconds time{};
  EXPECT_FALSE(copies_.ReadLastModified(path, time));
  using namespace std::chrono;
  EXPECT_EQ(time, sys_days(year(2026) / 1 / 1) + seconds(9));
}

TEST_F(WindowsFileCopiesTest, SaysThatAFileWithoutADateIsMissing) {
  std::chrono::sys_seconds time{std::chrono::seconds(77)};
  const auto fault = copies_.ReadLastModified(folder_.File("none.exe"), time);
  ASSERT_TRUE(fault);
  EXPECT_EQ(Outcome(fault), "missing");
  EXPECT_EQ(fault->number, ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(time.time_since_epoch().count(), 77);
}

TEST_F(WindowsFileCopiesTest, CreatesAndReplacesWithBytesAndDate) {
  std::string bytes;
  for (int i = 0; i < 300000; ++i) bytes += static_cast<char>(i * 7);
  SetDate(folder_.Write("new.exe", bytes), kNewYear2026);
  folder_.Write("old.exe", "a longer or shorter old content");
  for (const char* target : {"old.exe", "fresh.exe"}) {
    EXPECT_EQ(Outcome(Copy("new.exe", target)), "done");
    EXPECT_TRUE(BytesOf(folder_.File(target)) == bytes);
    WIN32_FILE_ATTRIBUTE_DATA data{};
    GetFileAttributesExA(folder_.File(target).c_str(), GetFileExInfoStandard, &data);
    EXPECT_EQ((static_cast<std::uint64_t>(data.ftLastWriteTime.dwHighDateTime) << 32) |
                  data.ftLastWriteTime.dwLowDateTime,
              kNewYear2026);
    ExpectNothingBeside(target);
  }
}

TEST_F(WindowsFileCopiesTest, CopiesAnEmptyFileAndOneOverItself) {
  folder_.Write("empty.exe", "");
  folder_.Write("old.exe", "old");
  EXPECT_EQ(Outcome(Copy("empty.exe", "old.exe")), "done");
  EXPECT_EQ(BytesOf(folder_.File("old.exe")), "");
  folder_.Write("self.exe", "self");
  EXPECT_EQ(Outcome(Copy("self.exe", "SELF.exe")), "done");
  EXPECT_EQ(BytesOf(folder_.File("self.exe")), "self");
}

TEST_F(WindowsFileCopiesTest, WhatAKilledLauncherLeftBesideIsNoHindrance) {
  folder_.Write("new.exe", "new");
  folder_.Write("old.exe", "old");
  folder_.Write("old.exe.tarvo-copy", "half of something that was longer");
  EXPECT_EQ(Outcome(Copy("new.exe", "old.exe")), "done");
  EXPECT_EQ(BytesOf(folder_.File("old.exe")), "new");
  ExpectNothingBeside("old.exe");
}

TEST_F(WindowsFileCopiesTest, AMissingSourceLeavesTheTarget) {
  folder_.Write("old.exe", "old");
  EXPECT_EQ(Outcome(Copy("none.exe", "old.exe")), "missing");
  EXPECT_EQ(Outcome(Copy("no-folder\\none.exe", "old.exe")), "missing");
  EXPECT_EQ(BytesOf(folder_.File("old.exe")), "old");
  ExpectNothingBeside("old.exe");
}

TEST_F(WindowsFileCopiesTest, AFolderIsNeitherSourceNorTarget) {
  folder_.Write("a.exe", "a");
  folder_.MakeFolder("folder");
  EXPECT_EQ(Outcome(Copy("a.exe", "folder")), "refused");
  EXPECT_NE(Outcome(Copy("a.exe", "")), "done");
  EXPECT_NE(Outcome(Copy("folder", "b.exe")), "done");
  EXPECT_NE(Outcome(Copy("", "b.exe")), "done");
  EXPECT_FALSE(IsThere(folder_.File("b.exe")));
  EXPECT_EQ(Outcome(Copy("a.exe", "no-folder\\b.exe")), "missing");
}

TEST_F(WindowsFileCopiesTest, AHeldTargetStaysAndIsReplacedWhenItIsLetGo) {
  folder_.Write("new.exe", "new");
  const std::string target = folder_.Write("old.exe", "old");
  for (const DWORD share : {DWORD{0}, DWORD{FILE_SHARE_READ}}) {
    const KernelHandle holder = OpenFile(target, GENERIC_READ, share);
    ASSERT_TRUE(holder.Valid());
    EXPECT_EQ(Outcome(Copy("new.exe", "old.exe")), "held") << share;
    ExpectNothingBeside("old.exe");
  }
  EXPECT_EQ(BytesOf(target), "old");
  EXPECT_EQ(Outcome(Copy("new.exe", "old.exe")), "done");
  EXPECT_EQ(BytesOf(target), "new");
}

TEST_F(WindowsFileCopiesTest, ASourceThatIsBeingWrittenIsHeld) {
  const std::string source = folder_.Write("new.exe", "half");
  folder_.Write("old.exe", "old");
  const KernelHandle linker = OpenFile(source, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE);
  ASSERT_TRUE(linker.Valid());
  EXPECT_EQ(Outcome(Copy("new.exe", "old.exe")), "held");
  EXPECT_EQ(BytesOf(folder_.File("old.exe")), "old");
}

TEST_F(WindowsFileCopiesTest, ASourceThatOthersReadIsCopied) {
  const std::string source = folder_.Write("new.exe", "new");
  const KernelHandle reader = OpenFile(source, GENERIC_READ, FILE_SHARE_READ);
  ASSERT_TRUE(reader.Valid());
  EXPECT_EQ(Outcome(Copy("new.exe", "fresh.exe")), "done");
}

TEST_F(WindowsFileCopiesTest, AServerThatRunsHoldsItsExecutable) {
  const std::string source = test::SampleServerPath("char");
  {
    const test::RunningServer server("login");
    ASSERT_TRUE(server.Runs());
    const std::string before = BytesOf(folder_.File("login-server.exe"));
    EXPECT_EQ(Outcome(copies_.CopyOver(source, folder_.File("login-server.exe"))), "held");
    EXPECT_TRUE(BytesOf(folder_.File("login-server.exe")) == before);
    EXPECT_TRUE(server.Runs());
    // The old executable can be saved while it runs.
    EXPECT_EQ(Outcome(Copy("login-server.exe", "saved.exe")), "done");
  }
  EXPECT_TRUE(test::Within(5000, [&] {
    return !copies_.CopyOver(source, folder_.File("login-server.exe"));
  })) << "the executable must come free once its process is gone";
}

TEST_F(WindowsFileCopiesTest, AReadOnlyTargetIsRefusedAndAReadOnlySourceMakesNoReadOnlyCopy) {
  folder_.Write("new.exe", "new");
  const std::string target = folder_.Write("old.exe", "old");
  SetFileAttributesA(target.c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(Outcome(Copy("new.exe", "old.exe")), "refused");
  EXPECT_EQ(BytesOf(target), "old");
  EXPECT_EQ(Outcome(Copy("old.exe", "copy.exe")), "done");
  EXPECT_EQ(GetFileAttributesA(folder_.File("copy.exe").c_str()) & FILE_ATTRIBUTE_READONLY, 0U);
  EXPECT_EQ(Outcome(Copy("new.exe", "copy.exe")), "done");
}

TEST_F(WindowsFileCopiesTest, MakesAFolderAndTellsItFromAFile) {
  const std::string path = folder_.File("LBackup");
  EXPECT_FALSE(copies_.FolderExists(path));
  EXPECT_FALSE(copies_.MakeFolder(path));
  EXPECT_TRUE(copies_.FolderExists(path));
  EXPECT_EQ(copies_.MakeFolder(path)->number, ERROR_ALREADY_EXISTS);
  const std::string file = folder_.Write("file", "");
  EXPECT_FALSE(copies_.FolderExists(file));
  EXPECT_EQ(Outcome(copies_.MakeFolder(file)), "refused");
  EXPECT_EQ(Outcome(copies_.MakeFolder(folder_.File("none\\LBackup"))), "missing");
}

TEST_F(WindowsFileCopiesTest, FaultsAreToldInTheSystemsWords) {
  const auto fault = Copy("none.exe", "old.exe");
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->description, SystemMessage(ERROR_FILE_NOT_FOUND));
  EXPECT_EQ(fault->description.find_first_of("\r\n"), std::string::npos);
  EXPECT_EQ(SystemMessage(0x2FFFFFFF), "System error 805306367");
}

TEST_F(WindowsFileCopiesTest, TellsOneFileUnderTwoNamesFromTwoFiles) {
  const std::string one = folder_.Write("one.exe", "same");
  const std::string two = folder_.Write("two.exe", "same");
  ASSERT_NE(CreateHardLinkA(folder_.File("hard.exe").c_str(), one.c_str(), nullptr), 0);
  EXPECT_TRUE(copies_.SameFile(one, one));
  EXPECT_TRUE(copies_.SameFile(one, folder_.File("ONE.EXE")));
  EXPECT_TRUE(copies_.SameFile(one, folder_.Path() + "\\.\\one.exe"));
  EXPECT_TRUE(copies_.SameFile(one, folder_.File("hard.exe")));
  EXPECT_FALSE(copies_.SameFile(one, two));
  EXPECT_FALSE(copies_.SameFile(one, folder_.File("none.exe")));
  EXPECT_FALSE(copies_.SameFile(folder_.File("none.exe"), folder_.File("none.exe")));
  const KernelHandle holder = OpenFile(one, GENERIC_READ, 0);
  EXPECT_TRUE(copies_.SameFile(one, folder_.File("hard.exe"))) << "while somebody holds it";
}

TEST_F(WindowsFileCopiesTest, TakesAFileAway) {
  const std::string path = folder_.Write("a.exe", "a");
  {
    const KernelHandle holder = OpenFile(path, GENERIC_READ, FILE_SHARE_READ);
    EXPECT_EQ(Outcome(copies_.Remove(path)), "held");
  }
  EXPECT_EQ(Outcome(copies_.Remove(path)), "done");
  EXPECT_FALSE(IsThere(path));
  EXPECT_EQ(Outcome(copies_.Remove(path)), "missing");
}

/// Lets one step fail, or notes what lies there when it comes.
class ScriptedSteps : public SwapSteps {
 public:
  DWORD flushError = ERROR_SUCCESS;
  DWORD swapError = ERROR_SUCCESS;
  std::string watched;
  std::string seen;

  DWORD Flush(HANDLE file) override {
    seen += "flush " + BytesOf(watched + ".tarvo-copy") + ", ";
    return flushError != ERROR_SUCCESS ? flushError : SwapSteps::Flush(file);
  }
  DWORD SwapIn(const std::wstring& beside, const std::wstring& target) override {
    seen += "swap " + BytesOf(watched);
    return swapError != ERROR_SUCCESS ? swapError : SwapSteps::SwapIn(beside, target);
  }
};

class CopyBySteps : public WindowsFileCopiesTest {
 protected:
  CopyBySteps() {
    folder_.Write("new.exe", "new");
    steps_.watched = folder_.Write("old.exe", "old");
  }
  std::string CopyNow() {
    return Outcome(
        WindowsFileCopies(steps_).CopyOver(folder_.File("new.exe"), folder_.File("old.exe")));
  }
  void ExpectOld() {
    EXPECT_EQ(BytesOf(folder_.File("old.exe")), "old");
    ExpectNothingBeside("old.exe");
  }

  ScriptedSteps steps_;
};

TEST_F(CopyBySteps, IsOnTheDiskBeforeItTakesTheOldFilesPlace) {
  EXPECT_EQ(CopyNow(), "done");
  EXPECT_EQ(steps_.seen, "flush new, swap old");
}

TEST_F(CopyBySteps, WhatCannotBeFlushedIsNotSwappedIn) {
  steps_.flushError = ERROR_WRITE_FAULT;
  EXPECT_EQ(CopyNow(), "refused");
  ExpectOld();
}

TEST_F(CopyBySteps, AFullDiskAndAnEndedQuotaAreTold) {
  for (const DWORD error : {DWORD{ERROR_DISK_FULL}, DWORD{ERROR_HANDLE_DISK_FULL}, DWORD{1295}}) {
    steps_.flushError = error;
    EXPECT_EQ(CopyNow(), "disk full") << error;
    ExpectOld();
  }
}

TEST_F(CopyBySteps, AccessDeniedAtTheSwapCountsAsHeld) {
  steps_.swapError = ERROR_ACCESS_DENIED;
  EXPECT_EQ(CopyNow(), "held");
  ExpectOld();
  steps_.flushError = ERROR_ACCESS_DENIED;
  EXPECT_EQ(CopyNow(), "refused") << "before the swap it is no right";
  ExpectOld();
}

/// A process that copies 4 MB over a target without end is ended at twenty moments: the target is
/// the old file or the new one, each time.
TEST_F(WindowsFileCopiesTest, ACopierThatIsKilledNeverLeavesHalfAFile) {
  constexpr std::size_t kSize = 4 * 1024 * 1024;
  const std::string old(kSize, 'o');
  const std::string fresh(kSize - 1234, 'n');
  folder_.Write("new.exe", fresh);
  const std::string target = folder_.Write("old.exe", old);
  int replaced = 0;
  int leftBeside = 0;
  for (DWORD kill = 0; kill < 20; ++kill) {
    folder_.Write("old.exe", old);
    const std::string role = "copy " + folder_.File("new.exe") + "*" + target;
    SetEnvironmentVariableA(test::kRoleVariable, role.c_str());
    const ProcessId id = WindowsProcesses().LaunchHidden(test::OwnPath()).id;
    SetEnvironmentVariableA(test::kRoleVariable, nullptr);
    ASSERT_NE(id, 0U);
    const KernelHandle copier(OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, id));
    const std::string beside = target + ".tarvo-copy";
    // Half of them die at the first copy, the others at a later one.
    ASSERT_TRUE(test::Within(10000, [&] {
      return IsThere(beside) && (kill % 2 == 0 || SizeOf(target) == fresh.size());
    }));
    Sleep(kill * 5);
    TerminateProcess(copier.Get(), 0);
    ASSERT_EQ(WaitForSingleObject(copier.Get(), 5000), WAIT_OBJECT_0);
    const std::string lies = BytesOf(target);
    EXPECT_TRUE(lies == old || lies == fresh) << lies.size() << " bytes at kill " << kill;
    replaced += lies == fresh ? 1 : 0;
    leftBeside += IsThere(beside) ? 1 : 0;
  }
  EXPECT_GT(replaced, 0);
  EXPECT_GT(leftBeside, 0) << "no kill met a copy under way";
}

}  // namespace
}  // namespace tarvo
