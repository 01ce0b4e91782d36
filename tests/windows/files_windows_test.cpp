#include "platform/windows/files_windows.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/windows/handle_windows.h"
#include "tests/windows/test_folder.h"
// After windows.h, which it needs.
#include <winioctl.h>

namespace tarvo {
namespace {

using test::BytesOf;
using test::TestFolder;

KernelHandle OpenWith(const std::string& path, DWORD access, DWORD share) {
  return KernelHandle(CreateFileA(path.c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr));
}

class WindowsFilesTest : public testing::Test {
 protected:
  /// Reads into a text that holds "before": so it can be seen whether it was touched.
  ReadResult Read(const std::string& path) {
    text_ = "before";
    return reader_.ReadText(path, text_);
  }

  TestFolder folder_;
  WindowsFileReader reader_;
  WindowsFileAppender appender_;
  WindowsFolderLister lister_;
  std::string text_;
};

TEST_F(WindowsFilesTest, ReadsEveryByteAsItStands) {
  std::string bytes =
      "a: 1\r\nb: 2\nc\x1A"
      "d";
  for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
  EXPECT_EQ(Read(folder_.Write("all.conf", bytes)), ReadResult::Ok);
  EXPECT_EQ(text_, bytes);
}

TEST_F(WindowsFilesTest, ReadsAnEmptyFile) {
  EXPECT_EQ(Read(folder_.Write("empty.conf", "")), ReadResult::Ok);
  EXPECT_EQ(text_, "");
}

TEST_F(WindowsFilesTest, ReadsAHundredMegabytes) {
  std::string large(100 * 1024 * 1024, '\0');
  for (std::size_t at = 0; at < large.size(); ++at) large[at] = static_cast<char>(at % 251);
  EXPECT_EQ(Read(folder_.Write("large.conf", large)), ReadResult::Ok);
  EXPECT_TRUE(text_ == large);
}

TEST_F(WindowsFilesTest, RefusesAFileOfMoreThanTwoGigabytes) {
  const std::string path = folder_.Write("huge.conf", "");
  {
    const KernelHandle file = OpenWith(path, GENERIC_WRITE, 0);
    DWORD count = 0;
    DeviceIoControl(file.Get(), FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &count, nullptr);
    LARGE_INTEGER size{};
    size.QuadPart = (2LL << 30) + 1;
    ASSERT_NE(SetFilePointerEx(file.Get(), size, nullptr, FILE_BEGIN), 0);
    ASSERT_NE(SetEndOfFile(file.Get()), 0);
  }
  EXPECT_EQ(Read(path), ReadResult::Failed);
  EXPECT_EQ(text_, "before");
}

TEST_F(WindowsFilesTest, TellsAMissingFileFromOneThatCannotBeRead) {
  EXPECT_EQ(Read(folder_.File("missing.conf")), ReadResult::Missing);
  EXPECT_EQ(Read(folder_.File("no-folder\\missing.conf")), ReadResult::Missing);
  EXPECT_EQ(Read(folder_.MakeFolder("a-folder")), ReadResult::Failed);
  const std::string locked = folder_.Write("locked.conf", "text");
  const KernelHandle lock = OpenWith(locked, GENERIC_READ, 0);
  ASSERT_TRUE(lock.Valid());
  EXPECT_EQ(Read(locked), ReadResult::Failed);
  EXPECT_EQ(text_, "before");
}

TEST_F(WindowsFilesTest, ReadsWhatAnotherProgramIsWriting) {
  const std::string path = folder_.Write("shared.conf", "text");
  const KernelHandle writer =
      OpenWith(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
  ASSERT_TRUE(writer.Valid());
  EXPECT_EQ(Read(path), ReadResult::Ok);
  EXPECT_EQ(text_, "text");
}

TEST_F(WindowsFilesTest, AFolderIsNoFile) {
  EXPECT_TRUE(reader_.Exists(folder_.Write("is.conf", "")));
  EXPECT_FALSE(reader_.Exists(folder_.File("is-not.conf")));
  EXPECT_FALSE(reader_.Exists(folder_.MakeFolder("a-folder")));
  EXPECT_FALSE(reader_.Exists(""));
}

TEST_F(WindowsFilesTest, AppendsAndMakesTheFileWhenItIsMissing) {
  const std::string path = folder_.File("20261121.log");
  EXPECT_TRUE(appender_.AppendText(path, "first\r\n"));
  EXPECT_TRUE(appender_.AppendText(path, std::string("sec\0nd\xE9\r\n", 9)));
  EXPECT_TRUE(appender_.AppendText(path, ""));
  EXPECT_EQ(BytesOf(path), std::string("first\r\nsec\0nd\xE9\r\n", 16));
}

TEST_F(WindowsFilesTest, AppendsWhileAnotherProgramReads) {
  const std::string path = folder_.Write("read.log", "1");
  const KernelHandle reader = OpenWith(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
  ASSERT_TRUE(reader.Valid());
  EXPECT_TRUE(appender_.AppendText(path, "2"));
  EXPECT_EQ(BytesOf(path), "12");
}

TEST_F(WindowsFilesTest, SaysThatItCouldNotAppend) {
  EXPECT_FALSE(appender_.AppendText(folder_.File("no-folder\\a.log"), "text"));
  EXPECT_FALSE(appender_.AppendText(folder_.MakeFolder("a-folder"), "text"));

  const std::string locked = folder_.Write("locked.log", "old");
  {
    const KernelHandle lock = OpenWith(locked, GENERIC_READ, 0);
    EXPECT_FALSE(appender_.AppendText(locked, "text"));
  }
  EXPECT_EQ(BytesOf(locked), "old");
}

TEST_F(WindowsFilesTest, ListsFilesByTheEndOfTheirLongName) {
  // The short name of "a.exe2" is A~1.EXE: a search for "*.exe" would find it.
  for (const char* name : {"login-server.exe", "Map-Server.EXE", "a.exe2", "exe", "b.exe.bak",
                           ".exe", "read me.Exe", "char_athena.conf"}) {
    folder_.Write(name, "");
  }
  folder_.MakeFolder("folder.exe");
  auto names = lister_.FilesEndingWith(folder_.Path(), ".exe");
  std::sort(names.begin(), names.end());
  const std::vector<std::string> expected = {".exe", "Map-Server.EXE", "login-server.exe",
                                             "read me.Exe"};
  EXPECT_EQ(names, expected);
  EXPECT_EQ(lister_.FilesEndingWith(folder_.Path() + "\\", ".EXE").size(), 4U);
}

TEST_F(WindowsFilesTest, ListsNothingWhereThereIsNoFolder) {
  EXPECT_TRUE(lister_.FilesEndingWith(folder_.File("missing"), ".exe").empty());
  EXPECT_TRUE(lister_.FilesEndingWith(folder_.MakeFolder("empty"), "").empty());
}

}  // namespace
}  // namespace tarvo
