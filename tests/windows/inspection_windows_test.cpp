#include <gtest/gtest.h>
#include <winsock2.h>

#include <algorithm>
#include <memory>

#include "platform/windows/file_inspection_windows.h"
#include "platform/windows/handle_windows.h"
#include "platform/windows/network_inspection_windows.h"
#include "platform/windows/process_inspection_windows.h"
#include "tests/windows/running_server.h"
#include "tests/windows/test_folder.h"

namespace tarvo {
namespace {

using test::RunningServer;
using test::TestFolder;
using Outcome = FileLook::Outcome;

constexpr std::uint32_t kWait = 5000;

class WindowsInspectionTest : public testing::Test {
 protected:
  TestFolder folder_;
  WindowsFileInspection files_;
  WindowsProcessInspection processes_;
  WindowsNetworkInspection network_;
};

TEST_F(WindowsInspectionTest, LooksAtAFile) {
  const std::string path = folder_.Write("a.exe", "12345");
  const FileLook look = files_.LookAt(path, kWait);
  EXPECT_EQ(look.outcome, Outcome::There);
  EXPECT_FALSE(look.isFolder);
  EXPECT_EQ(look.size, 5u);
  const auto age = std::chrono::system_clock::now() - look.modified;
  EXPECT_LT(age, std::chrono::minutes(5));
  EXPECT_GT(age, -std::chrono::minutes(5));
}

TEST_F(WindowsInspectionTest, KnowsAFileByAllItsNames) {
  const std::string path = folder_.Write("a.exe", "1");
  const std::string other = folder_.Write("b.exe", "1");
  const std::string identity = files_.LookAt(path, kWait).identity;
  EXPECT_NE(identity, "");
  EXPECT_EQ(files_.LookAt(folder_.Path() + "\\.\\A.EXE", kWait).identity, identity);
  EXPECT_NE(files_.LookAt(other, kWait).identity, identity);
}

TEST_F(WindowsInspectionTest, LooksAtFoldersAndAtNothing) {
  EXPECT_TRUE(files_.LookAt(folder_.Path() + "\\", kWait).isFolder);
  EXPECT_EQ(files_.LookAt(folder_.Path() + "\\", kWait).outcome, Outcome::There);
  EXPECT_EQ(files_.LookAt(folder_.File("none"), kWait).outcome, Outcome::Missing);
  EXPECT_EQ(files_.LookAt(folder_.File("no\\none"), kWait).outcome, Outcome::Missing);
}

/// A share that answers when it is let, "quick" at all times.
struct Share {
  KernelHandle answers{CreateEventA(nullptr, TRUE, FALSE, nullptr)};
  LONG asked = 0;
  LONG done = 0;
};
std::unique_ptr<Share> share;

FileLook LookAtShare(const std::wstring& path) {
  InterlockedIncrement(&share->asked);
  if (path != L"quick") WaitForSingleObject(share->answers.Get(), INFINITE);
  FileLook look;
  look.outcome = Outcome::There;
  look.size = static_cast<std::uint64_t>(share->asked);
  InterlockedIncrement(&share->done);
  return look;
}

class SlowShare : public testing::Test {
 protected:
  SlowShare() { share = std::make_unique<Share>(); }
  ~SlowShare() override {
    SetEvent(share->answers.Get());
    EXPECT_TRUE(test::Within(10000, [] { return share->done == share->asked; }));
    Sleep(50);  // From the end of the look to its event.
    share.reset();
  }
  WindowsFileInspection files_{&LookAtShare};
};

TEST_F(SlowShare, IsAskedOnceAndHoldsNothingElse) {
  for (int i = 0; i < 20; ++i) {
    EXPECT_EQ(files_.LookAt("slow", 10).outcome, Outcome::NotAnswered);
  }
  EXPECT_EQ(share->asked, 1);
  EXPECT_EQ(files_.LookAt("quick", kWait).outcome, Outcome::There);
  SetEvent(share->answers.Get());
  EXPECT_EQ(files_.LookAt("slow", kWait).outcome, Outcome::There);
  EXPECT_EQ(share->asked, 2);
}

TEST_F(SlowShare, AnAnswerThatNobodyWaitedForIsAskedForAgain) {
  EXPECT_EQ(files_.LookAt("slow", 10).outcome, Outcome::NotAnswered);
  SetEvent(share->answers.Get());
  Sleep(2500);
  EXPECT_EQ(files_.LookAt("slow", kWait).size, 2u) << "an old answer";
}

TEST_F(WindowsInspectionTest, ReadsTheBeginningAndHoldsNothing) {
  const std::string path = folder_.Write("a.conf", "a: 1\r\nb: 2\n");
  std::string text = "before";
  EXPECT_EQ(files_.ReadBeginning(path, 3, text), ReadResult::Ok);
  EXPECT_EQ(text, "a: ");
  EXPECT_EQ(files_.ReadBeginning(path, 100, text), ReadResult::Ok);
  EXPECT_EQ(text, "a: 1\r\nb: 2\n");
  text = "before";
  EXPECT_EQ(files_.ReadBeginning(folder_.File("none"), 3, text), ReadResult::Missing);
  EXPECT_EQ(files_.ReadBeginning(folder_.Path(), 3, text), ReadResult::Failed);
  EXPECT_EQ(text, "before");
  EXPECT_NE(DeleteFileA(path.c_str()), 0);
}

TEST_F(WindowsInspectionTest, TellsWhatCannotBeWritten) {
  const std::string path = folder_.Write("a.conf", "1");
  EXPECT_FALSE(files_.WhyUnwritable(path));
  EXPECT_FALSE(files_.WhyUnwritable(folder_.Path()));
  EXPECT_FALSE(files_.WhyUnwritable(folder_.File("none")));
  SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY);
  const auto fault = files_.WhyUnwritable(path);
  SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->trouble, FileTrouble::Refused);
  const HANDLE held =
      CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  const auto inUse = files_.WhyUnwritable(path);
  CloseHandle(held);
  ASSERT_TRUE(inUse);
  EXPECT_EQ(inUse->trouble, FileTrouble::Held);
}

TEST_F(WindowsInspectionTest, ChangesAndLeavesNothing) {
  const std::string path = folder_.Write("a.conf", "1");
  const FILETIME old{0, 0x01D00000};
  const HANDLE file = CreateFileA(path.c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
  SetFileTime(file, nullptr, nullptr, &old);
  CloseHandle(file);
  const auto before = files_.LookAt(path, kWait).modified;
  files_.WhyUnwritable(path);
  files_.WhyUnwritable(folder_.Path());
  EXPECT_EQ(files_.LookAt(path, kWait).modified, before);
  WIN32_FIND_DATAA entry{};
  const HANDLE search = FindFirstFileA(folder_.File("*").c_str(), &entry);
  int count = 1;
  while (FindNextFileA(search, &entry) != 0) ++count;
  FindClose(search);
  EXPECT_EQ(count, 3);  // ".", ".." and the file.
}

TEST_F(WindowsInspectionTest, TellsTheRoomOfADrive) {
  const auto room = files_.FreeSpace(folder_.Path());
  ASSERT_TRUE(room);
  EXPECT_GT(*room, 0u);
  EXPECT_FALSE(files_.FreeSpace(folder_.File("none\\none")));
}

TEST_F(WindowsInspectionTest, TellsPathAndSessionOfProcesses) {
  EXPECT_EQ(processes_.PathOf(processes_.OwnId()), test::OwnPath());
  const RunningServer server("login");
  const std::string path = processes_.PathOf(server.Id());
  EXPECT_TRUE(path.ends_with("\\login-server.exe")) << path;
  EXPECT_TRUE(processes_.SessionOf(processes_.OwnId()));
  EXPECT_EQ(processes_.SessionOf(server.Id()), processes_.SessionOf(processes_.OwnId()));
  EXPECT_EQ(processes_.PathOf(0xFFFFFFF0), "");
  EXPECT_FALSE(processes_.SessionOf(0xFFFFFFF0));
}

TEST_F(WindowsInspectionTest, StartsProgramsOfItsOwnProcessorAlone) {
  EXPECT_TRUE(processes_.StartsProgramsFor(sizeof(void*) == 8 ? 0x8664 : 0x14C));
  EXPECT_FALSE(processes_.StartsProgramsFor(0xAA64));
  EXPECT_FALSE(processes_.StartsProgramsFor(0));
}

TEST_F(WindowsInspectionTest, FindsTheListenerOfAPort) {
  const RunningServer server("login");
  const auto listens = [&] {
    const auto all = network_.Listeners();
    return std::any_of(all.begin(), all.end(), [&](const Listener& listener) {
      // Wine does not always tell whose it is.
      const bool its = listener.process == server.Id() || listener.process == 0;
      return listener.port == server.Port() && listener.address == htonl(INADDR_LOOPBACK) && its;
    });
  };
  EXPECT_TRUE(test::Within(5000, listens));
}

TEST_F(WindowsInspectionTest, ThisMachineHasItsLoopbackAddress) {
  const auto own = network_.OwnAddresses();
  EXPECT_NE(std::find(own.begin(), own.end(), htonl(INADDR_LOOPBACK)), own.end());
}

}  // namespace
}  // namespace tarvo
