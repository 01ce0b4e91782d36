#include "platform/windows/windows_machine.h"

#include <gtest/gtest.h>

#include "platform/windows/code_page_windows.h"
#include "platform/windows/handle_windows.h"
#include "platform/windows/system_message_windows.h"
#include "tests/windows/test_folder.h"

namespace tarvo {
namespace {

TEST(WindowsMachineTest, HandsOutPortsThatWork) {
  const test::TestFolder folder;
  WindowsMachine machine;
  Machine ports = machine.Ports();
  EXPECT_EQ(ports.executablePath, test::OwnPath());
  EXPECT_TRUE(ports.fileAppender.AppendText(folder.File("a.log"), "line"));
  std::string text;
  EXPECT_EQ(ports.fileReader.ReadText(folder.File("a.log"), text), ReadResult::Ok);
  EXPECT_EQ(text, "line");
  EXPECT_EQ(ports.folderLister.FilesEndingWith(folder.Path(), ".log").size(), 1U);
  EXPECT_FALSE(ports.processes.Snapshot().empty());
  EXPECT_GT(ports.memoryStatus.TotalPhysical(), 0);
  EXPECT_TRUE(ports.pathInCodePage);
}

TEST(WindowsMachineTest, AFolderWithTwoNamesIsOneFolder) {
  const test::TestFolder folder;
  folder.MakeFolder("real");
  ASSERT_TRUE(test::MakeLink("second", "real"));
  const std::string real = folder.File("real");
  EXPECT_EQ(RealFolderOf(WideTextOf(real + "\\l.exe")), real);
  EXPECT_EQ(RealFolderOf(WideTextOf(folder.File("second\\l.exe"))), real);
  EXPECT_EQ(RealFolderOf(WideTextOf(R"(\\?\)" + real + "\\l.exe")), real);
  EXPECT_EQ(RealFolderOf(L"C:\\l.exe"), "C:");
  EXPECT_EQ(RealFolderOf(L"C:\\is not there\\l.exe"), "C:\\is not there");
  EXPECT_EQ(RealFolderOf(L"\\\\host\\none\\l.exe"), "\\\\host\\none");
  WindowsMachine machine;
  const Machine ports = machine.Ports();
  EXPECT_EQ(ports.realFolder + ports.executablePath.substr(ports.executablePath.rfind('\\')),
            ports.executablePath);
}

TEST(WindowsMachineTest, TheWorkingFolderIsTheOneThatWasMovedInto) {
  test::TestFolder folder;
  WindowsMachine machine;
  WorkingFolder& workingFolder = machine.Ports().workingFolder;
  const std::string other = folder.MakeFolder("other \xD1");
  const auto current = [] {
    char path[MAX_PATH] = {};
    GetCurrentDirectoryA(MAX_PATH, path);
    return std::string(path);
  };
  EXPECT_TRUE(workingFolder.MoveInto(other + "\\"));
  EXPECT_EQ(current(), other);
  EXPECT_FALSE(workingFolder.MoveInto(other + "\\missing\\"));
  EXPECT_EQ(current(), other);
  EXPECT_TRUE(workingFolder.MoveInto(folder.Path() + "\\"));
}

TEST(WindowsMachineTest, AFileIsUnreadableOnlyWhenItIsThere) {
  const test::TestFolder folder;
  WindowsMachine machine;
  FileDiagnosis& diagnosis = machine.Ports().fileDiagnosis;
  const std::string path = folder.Write("char_athena.conf", "char_port: 6121");
  EXPECT_FALSE(diagnosis.WhyUnreadable(path).has_value());
  EXPECT_FALSE(diagnosis.WhyUnreadable(folder.File("missing")).has_value());
  EXPECT_FALSE(diagnosis.WhyUnreadable(folder.File("no folder\\missing")).has_value());
  const KernelHandle holder(
      CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  const auto fault = diagnosis.WhyUnreadable(path);
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->number, ERROR_SHARING_VIOLATION);
  EXPECT_EQ(fault->description, SystemMessage(ERROR_SHARING_VIOLATION));
}

}  // namespace
}  // namespace tarvo
