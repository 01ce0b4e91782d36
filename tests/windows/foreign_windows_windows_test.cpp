#include "platform/windows/foreign_windows_windows.h"

#include <gtest/gtest.h>

#include <set>

#include "tests/servers/server_commands.h"
#include "tests/windows/running_server.h"
#include "tests/windows/test_folder.h"

namespace tarvo {
namespace {

using test::RunningServer;

class WindowsForeignWindowsTest : public testing::Test {
 protected:
  test::TestFolder folder_;
  WindowsForeignWindows windows_;
};

TEST_F(WindowsForeignWindowsTest, TheWalkMeetsEachWindowOnceAndEnds) {
  const RunningServer login("login");
  const RunningServer map("map");
  std::set<WindowHandle> met;
  WindowHandle each = windows_.First();
  for (; each != 0 && met.size() < 10000; each = windows_.Next(each)) {
    EXPECT_TRUE(met.insert(each).second);
    EXPECT_TRUE(windows_.StillThere(each));
  }
  EXPECT_EQ(each, 0);
  EXPECT_EQ(met.count(login.Window()), 1U);
  EXPECT_EQ(met.count(map.Window()), 1U);
}

TEST_F(WindowsForeignWindowsTest, AServersWindowBelongsToItsProcessAndHasNoParent) {
  const RunningServer server("char");
  ASSERT_NE(server.Window(), 0);
  EXPECT_EQ(windows_.Owner(server.Window()), server.Id());
  EXPECT_EQ(windows_.Parent(server.Window()), 0);
}

TEST_F(WindowsForeignWindowsTest, ShowsAndHidesAndTellsWhatWasBefore) {
  const RunningServer server("login");
  const WindowHandle window = server.Window();
  const HWND native = reinterpret_cast<HWND>(window);
  EXPECT_EQ(windows_.Show(window, kShowWindowNormal), 0);
  EXPECT_TRUE(test::Within(5000, [&] { return IsWindowVisible(native) != 0; }));
  EXPECT_NE(windows_.Show(window, kHideWindow), 0);
  EXPECT_TRUE(test::Within(5000, [&] { return IsWindowVisible(native) == 0; }));
}

TEST_F(WindowsForeignWindowsTest, AWindowThatIsGoneAnswersWithNothing) {
  const RunningServer server("login");
  const WindowHandle window = server.Window();
  ASSERT_TRUE(windows_.StillThere(window));
  server.Tell(sample::kDie);
  EXPECT_TRUE(test::Within(5000, [&] { return !windows_.StillThere(window); }));
  EXPECT_EQ(windows_.Next(window), 0);
  EXPECT_EQ(windows_.Owner(window), 0U);
  EXPECT_EQ(windows_.Parent(window), 0);
  EXPECT_EQ(windows_.Show(window, kShowWindowNormal), 0);
}

// ShowWindow waits for the other program, also in the 5 seconds for which the system does not yet
// hold it for hung: a frozen server would have frozen its supervisor too.
TEST_F(WindowsForeignWindowsTest, ABusyProgramDoesNotHoldUpWhoLooksAtItsWindow) {
  const RunningServer server("map");
  const WindowHandle window = server.Window();
  const HWND native = reinterpret_cast<HWND>(window);
  PostMessageA(native, sample::kBusy, 4000, 0);
  Sleep(200);
  const DWORD start = GetTickCount();
  EXPECT_EQ(windows_.Show(window, kShowWindowNormal), 0);
  EXPECT_TRUE(windows_.StillThere(window));
  EXPECT_EQ(windows_.Owner(window), server.Id());
  EXPECT_EQ(windows_.Parent(window), 0);
  windows_.Next(window);
  const DWORD taken = GetTickCount() - start;
  EXPECT_LT(taken, 1000U);
  EXPECT_EQ(IsWindowVisible(native), 0) << "it was not busy at all";
  EXPECT_TRUE(test::Within(9000, [&] { return IsWindowVisible(native) != 0; }));
}

}  // namespace
}  // namespace tarvo
