#include "form/form.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tarvo {
namespace {

TEST(Frame, BeginsWithTheProgramsName) { EXPECT_EQ(Frame().window.Title(), "Tarvo Launcher"); }

TEST(ServersPage, HasTheListsAndTextsThatOperatorsKnow) {
  const ServersPage page;
  const std::vector<std::string> priorities = {"V-Low", "Low", "Norm", "High", "V-High"};
  const std::vector<std::string> modes = {"Everything", "Errors & Warn & Extra",
                                          "Errors & Warnings", "Only Errors"};
  for (ComponentKind kind : kComponents) {
    EXPECT_EQ(page.Prior[kind].Items(), priorities);
    EXPECT_EQ(page.TTO[kind].Text(), "15");
    EXPECT_FALSE(page.TTO[kind].Enabled());
  }
  EXPECT_EQ(page.LogH.Items(), modes);
  const char* const tips[] = {
      "When freeze detected, how many time will wait before kill and restart login server",
      "When freeze detected, how many time will wait before kill and restart char server",
      "When freeze detected, how many time will wait before kill and restart map server"};
  for (ComponentKind kind : kComponents) {
    EXPECT_EQ(page.chkAK[IndexOf(kind)].ToolTip(), tips[IndexOf(kind)]);
    EXPECT_EQ(page.TTO[kind].ToolTip(), tips[IndexOf(kind)]);
  }
  EXPECT_EQ(page.LogH.ToolTip(), "What status messages will be saved in the log file?");
  EXPECT_EQ(page.WLog.ToolTip(), "Save status in log file?");
  EXPECT_EQ(page.SMinimized.ToolTip(), "Hide the main window at start?");
}

}  // namespace
}  // namespace tarvo
