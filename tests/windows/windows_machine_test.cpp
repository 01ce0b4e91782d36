#include "platform/windows/windows_machine.h"

#include <gtest/gtest.h>

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
}

}  // namespace
}  // namespace tarvo
