// A year of random storms in which the machine sleeps between two of them; `./bench storms` watches
// through years that are awake.

#include <gtest/gtest.h>

#include "tests/simulation/storm.h"

namespace tarvo {
namespace {

TEST(Storms, AYearOfThemBreaksNoPromiseOfTheGuide) {
  const StormReport report = StormsOf(20261122, 365, false);
  for (const std::string& broken : report.broken) ADD_FAILURE() << broken;
  EXPECT_GE(report.days, 365);
  EXPECT_GT(report.storms, 150u);
  EXPECT_GT(report.deaths, 5 * report.storms);
  EXPECT_EQ(report.faults.size(), kStormFaults);
  for (const auto& [fault, count] : report.faults) EXPECT_GT(count, 50u) << NameOf(fault);
}

TEST(Storms, NoneOfWhatIsLegalInTheLogIsTakenForDisorder) {
  LogOrder order;
  for (const char* line :
       {"Map Server Started [High Priority]", "Listening Map Server",
        "Map server is freeze!... waiting...", "Map server is back!",
        "Map server is freeze!... waiting...", "Shuting down Map...",
        "Map Server crashed, restarting...", "[map-server.exe] was found in memory!",
        "Map Server under control [High Priority]", "Map server is freeze!... waiting...",
        "Listening Map Server", "Map Server Stopped!",
        "[map-server.exe] refuses to end, still in memory!"}) {
    EXPECT_EQ(order.Take(line), "");
  }
}

TEST(Storms, EachDisorderOfTheLogIsSeen) {
  const struct {
    std::vector<const char*> before;
    const char* line;
  } cases[] = {
      {{}, "Listening Char Server"},
      {{}, "Char Server Stopped!"},
      {{}, "Char Server crashed, restarting..."},
      {{}, "[char-server.exe] refuses to end, still in memory!"},
      {{"Char Server Started [Norm Priority]"}, "Char Server Started [Norm Priority]"},
      {{"Char Server Started [Norm Priority]"}, "Char server is back!"},
      {{"Char Server Started [Norm Priority]"}, "Shuting down Char..."},
      {{"Char Server Started [Norm Priority]", "Listening Char Server"}, "Listening Char Server"},
      {{"Char Server Started [Norm Priority]", "Char server freeze!... waiting..."},
       "Char server freeze!... waiting..."},
      {{"Char Server Started [Norm Priority]", "Char Server crashed, restarting..."},
       "Listening Char Server"},
      {{"Char Server Started [Norm Priority]", "Char Server Stopped!"}, "Char Server Stopped!"},
  };
  for (const auto& c : cases) {
    LogOrder order;
    for (const char* line : c.before) ASSERT_EQ(order.Take(line), "");
    EXPECT_EQ(order.Take(c.line), std::string("out of order: ") + c.line);
  }
}

}  // namespace
}  // namespace tarvo
