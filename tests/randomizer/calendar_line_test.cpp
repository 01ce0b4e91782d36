#include "randomizer/calendar_line.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

TEST(DayIndexOf, NamesTheDaysFromMondayExactly) {
  const char* days[] = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};
  for (int i = 0; i < 7; ++i) EXPECT_EQ(DayIndexOf(days[i]), i + 1);
  for (const char* other : {"", "mon", "MON", "Monday", "Mo", " Mon", "Mon "}) {
    EXPECT_EQ(DayIndexOf(other), 0) << other;
  }
}

TEST(ReadCalendarLine, ReadsDayTimeAndRestart) {
  const struct {
    const char* line;
    CalendarEntry entry;
  } cases[] = {
      {"Mon 08:30 restart=Y", {{1, 8, 30}, true}},  {"Sun 00:00 restart=N", {{7, 0, 0}, false}},
      {"Sat 23:59 restart=Y", {{6, 23, 59}, true}}, {"Mon 8:5 restart=N", {{1, 8, 5}, false}},
      {"mon 08:30 restart=Y", {{0, 8, 30}, true}},  {"Mon 99:99 restart=N", {{1, 99, 99}, false}},
      {" 08:30 restart=Y", {{0, 8, 30}, true}},
  };
  for (const auto& c : cases) EXPECT_EQ(ReadCalendarLine(c.line), c.entry) << c.line;
}

TEST(ReadCalendarLine, SkipsEveryOtherForm) {
  for (const char* line : {"",
                           " ",
                           "  ",
                           "Mon",
                           "Mon ",
                           "Mon 08:30",
                           "Mon 08:30 ",
                           "Mon restart=Y",
                           "Mon 0830 restart=Y",
                           "Mon 08:30 restart=Y ",
                           "Mon  08:30 restart=Y",
                           "Mon 08:30  restart=Y",
                           "Mon 08:30 x restart=Y",
                           "Mon 08:30:15 restart=Y",
                           "Mon : restart=Y",
                           "Mon 08: restart=Y",
                           "Mon :30 restart=Y",
                           "Mon -8:30 restart=Y",
                           "Mon +8:30 restart=Y",
                           "Mon 08:-30 restart=Y",
                           "Mon 8.5:30 restart=Y",
                           "Mon ab:cd restart=Y",
                           "Mon 08:30 restart=y",
                           "Mon 08:30 restart=",
                           "Mon 08:30 restart",
                           "Mon 08:30 restart=YY",
                           "Mon 08:30 restart=Y=Y",
                           "Mon 08:30 =Y",
                           "Mon 99999999999:30 restart=Y",
                           "Mon\t08:30\trestart=Y",
                           "a b c",
                           "Mon 08:30restart=Y",
                           "Mon08:30 restart=Y",
                           "Mon08:30restart=Y",
                           "08:30 restart=Y",
                           "Mon  restart=Y",
                           "Mon 08 30 restart=Y",
                           "Mon 08.30 restart=Y",
                           "Mon 08 restart=Y",
                           "Mon:08:30 restart=Y",
                           ": : :"}) {
    EXPECT_EQ(ReadCalendarLine(line), std::nullopt) << '"' << line << '"';
  }
}

TEST(ReadCalendarLine, SurvivesEveryTruncation) {
  const std::string line = "Mon 08:30 restart=Y";
  for (std::size_t length = 0; length < line.size(); ++length) {
    EXPECT_EQ(ReadCalendarLine(line.substr(0, length)), std::nullopt) << length;
  }
}

TEST(CalendarLine, IsMadeOfNameAndRestart) {
  EXPECT_EQ(CalendarLineOf("Mon_08:30", "Yes"), "Mon 08:30 restart=Y");
  EXPECT_EQ(CalendarLineOf("Mon_08:30", "No"), "Mon 08:30 restart=N");
  EXPECT_EQ(CalendarLineOf("Mon_08:30", "yes"), "Mon 08:30 restart=N");
  EXPECT_EQ(CalendarLineOf("Mon_08:30", ""), "Mon 08:30 restart=N");
  EXPECT_EQ(CalendarLineOf("a_b_c", "Yes"), "a b c restart=Y");
  EXPECT_EQ(CalendarLineOf("", "No"), " restart=N");
}

TEST(CalendarLine, GivesItsNameBack) {
  EXPECT_EQ(NameInCalendarLine("Mon 08:30 restart=Y"), "Mon_08:30");
  EXPECT_EQ(NameInCalendarLine("a b c restart=Y"), "a_b");
  EXPECT_EQ(NameInCalendarLine("x restart=N"), "x_restart=N");
  EXPECT_EQ(NameInCalendarLine(" restart=N"), "_restart=N");
  EXPECT_EQ(NameInCalendarLine("Mon"), "Mon");
  EXPECT_EQ(NameInCalendarLine(""), "");
}

}  // namespace
}  // namespace tarvo
