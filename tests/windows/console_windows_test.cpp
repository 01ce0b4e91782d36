#include "platform/windows/console_windows.h"

#include <gtest/gtest.h>

#include "tests/windows/test_folder.h"

namespace tarvo {
namespace {

/// While it lives, a standard stream of this program goes into a file.
class Redirected {
 public:
  Redirected(DWORD stream, const std::string& path)
      : stream_(stream),
        before_(GetStdHandle(stream)),
        file_(CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                          FILE_ATTRIBUTE_NORMAL, nullptr)) {
    SetStdHandle(stream, file_.Get());
  }
  ~Redirected() { SetStdHandle(stream_, before_); }
  Redirected(const Redirected&) = delete;
  Redirected& operator=(const Redirected&) = delete;

 private:
  DWORD stream_;
  HANDLE before_;
  KernelHandle file_;
};

TEST(ConsoleWindowsTest, AFileGetsTheCodePagesTextWithWholeLineEnds) {
  const test::TestFolder folder;
  {
    const Redirected output(STD_OUTPUT_HANDLE, folder.File("out"));
    const Redirected error(STD_ERROR_HANDLE, folder.File("err"));
    WindowsConsole console;
    EXPECT_TRUE(console.PrintText(OutputStream::Output, "C:\\\xD1\none\r\ntwo\n"));
    EXPECT_TRUE(console.PrintText(OutputStream::Error, "no\n"));
    EXPECT_TRUE(console.PrintText(OutputStream::Output, "more"));
  }
  EXPECT_EQ(test::BytesOf(folder.File("out")), "C:\\\xD1\r\none\r\ntwo\r\nmore");
  EXPECT_EQ(test::BytesOf(folder.File("err")), "no\r\n");
}

TEST(ConsoleWindowsTest, Utf8ComesOutByteForByte) {
  const test::TestFolder folder;
  {
    const Redirected output(STD_OUTPUT_HANDLE, folder.File("out"));
    EXPECT_TRUE(WindowsConsole().PrintUtf8(OutputStream::Output, "{\"\xC3\xB1\"}\n\xFF"));
  }
  EXPECT_EQ(test::BytesOf(folder.File("out")), "{\"\xC3\xB1\"}\n\xFF");
}

TEST(ConsoleWindowsTest, APipeThatNobodyReadsAnyMoreIsTold) {
  const HANDLE before = GetStdHandle(STD_OUTPUT_HANDLE);
  HANDLE reader = nullptr;
  HANDLE writer = nullptr;
  ASSERT_TRUE(CreatePipe(&reader, &writer, nullptr, 0));
  const KernelHandle open(writer);
  SetStdHandle(STD_OUTPUT_HANDLE, writer);
  WindowsConsole console;
  EXPECT_TRUE(console.PrintText(OutputStream::Output, "one"));
  char text[8] = {};
  DWORD size = 0;
  EXPECT_TRUE(ReadFile(reader, text, sizeof text, &size, nullptr));
  EXPECT_EQ(std::string(text, size), "one");
  CloseHandle(reader);
  EXPECT_FALSE(console.PrintText(OutputStream::Output, "two"));
  SetStdHandle(STD_OUTPUT_HANDLE, before);
}

}  // namespace
}  // namespace tarvo
