// Files replaced whole or not at all, with each way in which a step can fail.
#include "platform/windows/file_copies_windows.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <utility>

#include "platform/windows/handle_windows.h"
#include "tests/windows/test_folder.h"

namespace tarvo {
namespace {

using test::BytesOf;
using test::TestFolder;

constexpr char kVictimVariable[] = "TARVO_TEST_VICTIM";

bool Exists(const std::string& path) {
  return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

class FileReplacerTest : public testing::Test {
 protected:
  /// The old file is whole and nothing is left beside it.
  void ExpectUntouched() {
    EXPECT_EQ(BytesOf(path_), "old text");
    EXPECT_FALSE(Exists(path_ + ".writing"));
  }

  TestFolder folder_;
  WindowsFileReplacer replacer_;
  const std::string path_ = folder_.Write("kept.xml", "old text");
};

TEST_F(FileReplacerTest, ReplacesAFileByteForByte) {
  std::string bytes = "line\r\nline\n\x1A";
  for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
  EXPECT_FALSE(replacer_.ReplaceText(path_, bytes).has_value());
  EXPECT_EQ(BytesOf(path_), bytes);
  EXPECT_FALSE(Exists(path_ + ".writing"));
}

TEST_F(FileReplacerTest, ReplacesALongFileByAShortOneAndByNothing) {
  EXPECT_FALSE(replacer_.ReplaceText(path_, "x").has_value());
  EXPECT_EQ(BytesOf(path_), "x");
  EXPECT_FALSE(replacer_.ReplaceText(path_, "").has_value());
  EXPECT_TRUE(Exists(path_));
  EXPECT_EQ(BytesOf(path_), "");
}

TEST_F(FileReplacerTest, CreatesAFileThatWasMissing) {
  const std::string fresh = folder_.File("fresh.xml");
  EXPECT_FALSE(replacer_.ReplaceText(fresh, "text").has_value());
  EXPECT_EQ(BytesOf(fresh), "text");
}

TEST_F(FileReplacerTest, WritesFortyMegabytes) {
  const std::string large(40 * 1024 * 1024, 'x');
  EXPECT_FALSE(replacer_.ReplaceText(path_, large).has_value());
  EXPECT_TRUE(BytesOf(path_) == large);
}

TEST_F(FileReplacerTest, AMissingFolderIsAFaultWithNumberAndWords) {
  const auto fault = replacer_.ReplaceText(folder_.File("no-folder\\x.xml"), "text");
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->number, ERROR_PATH_NOT_FOUND);
  EXPECT_NE(fault->description, "");
}

TEST_F(FileReplacerTest, AFolderOfThatNameIsAFault) {
  const std::string folder = folder_.MakeFolder("folder.xml");
  EXPECT_TRUE(replacer_.ReplaceText(folder, "text").has_value());
  EXPECT_TRUE(Exists(folder));
  EXPECT_FALSE(Exists(folder + ".writing"));
}

TEST_F(FileReplacerTest, ATargetThatIsOpenElsewhereStaysWhole) {
  const KernelHandle lock(CreateFileA(path_.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(lock.Valid());
  const auto fault = replacer_.ReplaceText(path_, "new text");
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->trouble, FileTrouble::Held);
  ExpectUntouched();
}

TEST_F(FileReplacerTest, AReadOnlyTargetStaysWhole) {
  ASSERT_NE(SetFileAttributesA(path_.c_str(), FILE_ATTRIBUTE_READONLY), 0);
  const auto fault = replacer_.ReplaceText(path_, "new text");
  SetFileAttributesA(path_.c_str(), FILE_ATTRIBUTE_NORMAL);
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->number, ERROR_ACCESS_DENIED);
  EXPECT_EQ(fault->trouble, FileTrouble::Refused);
  ExpectUntouched();
}

/// A disk with room for half of what is written.
class FullDisk : public SwapSteps {
 public:
  explicit FullDisk(DWORD error) : error_(error) {}
  DWORD Write(HANDLE file, const char* bytes, std::size_t size) override {
    SwapSteps::Write(file, bytes, size / 2);
    return error_;
  }

 private:
  DWORD error_;
};

TEST_F(FileReplacerTest, AFullDiskLeavesTheOldFileWholeAndNothingBeside) {
  // Quotas have a number of their own, as have disks that fill up behind the system's back.
  for (const DWORD error : {DWORD{ERROR_DISK_FULL}, DWORD{ERROR_HANDLE_DISK_FULL}, DWORD{1295}}) {
    FullDisk steps(error);
    const auto fault = WindowsFileReplacer(steps).ReplaceText(path_, "new text");
    ASSERT_TRUE(fault.has_value());
    EXPECT_EQ(fault->number, static_cast<int>(error));
    EXPECT_EQ(fault->trouble, FileTrouble::DiskFull);
    EXPECT_NE(fault->description, "");
    ExpectUntouched();
  }
}

class NoFlush : public SwapSteps {
 public:
  DWORD Flush(HANDLE) override { return ERROR_WRITE_FAULT; }
};

TEST_F(FileReplacerTest, WhatCannotBeFlushedIsNotSwappedIn) {
  NoFlush steps;
  const auto fault = WindowsFileReplacer(steps).ReplaceText(path_, "new text");
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->number, ERROR_WRITE_FAULT);
  EXPECT_EQ(fault->trouble, FileTrouble::Refused);
  ExpectUntouched();
}

class RefusedSwap : public SwapSteps {
 public:
  DWORD SwapIn(const std::wstring&, const std::wstring&) override { return ERROR_ACCESS_DENIED; }
};

TEST_F(FileReplacerTest, AccessDeniedAtTheSwapCountsAsHeld) {
  RefusedSwap steps;
  const auto fault = WindowsFileReplacer(steps).ReplaceText(path_, "new text");
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->number, ERROR_ACCESS_DENIED);
  EXPECT_EQ(fault->trouble, FileTrouble::Held);
  ExpectUntouched();
}

/// Remembers in which order the steps came.
class WatchedSteps : public SwapSteps {
 public:
  explicit WatchedSteps(std::string path) : path_(std::move(path)) {}
  std::string steps;

  DWORD Write(HANDLE file, const char* bytes, std::size_t size) override {
    steps += "write ";
    return SwapSteps::Write(file, bytes, size);
  }
  DWORD Flush(HANDLE file) override {
    steps += "flush " + BytesOf(path_ + ".writing") + ", ";
    return SwapSteps::Flush(file);
  }
  DWORD SwapIn(const std::wstring& beside, const std::wstring& target) override {
    steps += BytesOf(path_) + " becomes " + BytesOf(path_ + ".writing");
    return SwapSteps::SwapIn(beside, target);
  }

 private:
  std::string path_;
};

TEST_F(FileReplacerTest, WritesAndFlushesBesideBeforeItSwaps) {
  WatchedSteps steps(path_);
  EXPECT_FALSE(WindowsFileReplacer(steps).ReplaceText(path_, "new text").has_value());
  EXPECT_EQ(steps.steps, "write flush new text, old text becomes new text");
}

/// Ends the process, as a power cut would, when the new text is written and not yet swapped in.
class EndedBeforeTheSwap : public SwapSteps {
 public:
  DWORD SwapIn(const std::wstring&, const std::wstring&) override {
    TerminateProcess(GetCurrentProcess(), 77);
    return ERROR_SUCCESS;
  }
};

// Not a test: the process that the next test starts, to be ended.
TEST(FileReplacerVictim, DISABLED_IsEndedBeforeTheSwap) {
  const char* path = std::getenv(kVictimVariable);
  if (path == nullptr) return;
  EndedBeforeTheSwap steps;
  WindowsFileReplacer(steps).ReplaceText(path, "new text");
}

DWORD RunVictim(const std::string& path) {
  SetEnvironmentVariableA(kVictimVariable, path.c_str());
  std::string command = "\"" + test::OwnPath() +
                        "\" --gtest_also_run_disabled_tests --gtest_filter=FileReplacerVictim.*";
  STARTUPINFOA startup{};
  startup.cb = sizeof(startup);
  PROCESS_INFORMATION process{};
  const BOOL started = CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                      nullptr, &startup, &process);
  SetEnvironmentVariableA(kVictimVariable, nullptr);
  if (started == 0) return 0;
  const KernelHandle handle(process.hProcess);
  const KernelHandle thread(process.hThread);
  WaitForSingleObject(handle.Get(), 60000);
  DWORD code = 0;
  GetExitCodeProcess(handle.Get(), &code);
  return code;
}

TEST_F(FileReplacerTest, AProcessEndedBeforeTheSwapLeavesTheOldFileWhole) {
  ASSERT_EQ(RunVictim(path_), 77u);
  EXPECT_EQ(BytesOf(path_), "old text");
  EXPECT_FALSE(replacer_.ReplaceText(path_, "newer text").has_value())
      << "what the ended process left beside is in the way";
  EXPECT_EQ(BytesOf(path_), "newer text");
  EXPECT_FALSE(Exists(path_ + ".writing"));
}

}  // namespace
}  // namespace tarvo
