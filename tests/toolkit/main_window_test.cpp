#include "toolkit/main_window.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvo {
namespace {

class MainWindowTest : public testing::Test {
 protected:
  MainWindowTest() {
    window.onResize = [this] {
      events += window.State() == WindowState::Minimized ? "minimized " : "normal ";
    };
  }
  MainWindow window;
  std::string events;
};

TEST_F(MainWindowTest, BeginsInvisibleNormalAndRunning) {
  EXPECT_FALSE(window.Visible());
  EXPECT_EQ(window.State(), WindowState::Normal);
  EXPECT_EQ(window.Title(), "");
  EXPECT_FALSE(window.Ended());
}

TEST_F(MainWindowTest, TellsEachChangeOfItsState) {
  window.SetState(WindowState::Normal);
  EXPECT_EQ(events, "");
  window.SetState(WindowState::Minimized);
  window.SetState(WindowState::Minimized);
  window.SetState(WindowState::Normal);
  EXPECT_EQ(events, "minimized normal ");
}

TEST_F(MainWindowTest, ComesToTheFrontVisibleAndNormal) {
  window.SetState(WindowState::Minimized);
  window.BringToFront();
  EXPECT_TRUE(window.Visible());
  EXPECT_EQ(window.State(), WindowState::Normal);
  EXPECT_EQ(window.FrontRequests(), 1);
  window.BringToFront();
  EXPECT_EQ(window.FrontRequests(), 2) << "also when nothing else changes";
  EXPECT_EQ(events, "minimized normal ");
}

TEST_F(MainWindowTest, ACloseRequestEndsNothingByItself) {
  window.Close();  // Nobody listens, which is no fault.
  EXPECT_FALSE(window.Ended());
  window.onClose = [this] { window.End(0); };
  window.Close();
  EXPECT_TRUE(window.Ended());
}

TEST_F(MainWindowTest, TheFirstEndCounts) {
  window.End(3);
  window.End(0);
  EXPECT_EQ(window.ExitCode(), 3);
}

}  // namespace
}  // namespace tarvo
