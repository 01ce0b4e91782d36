#include "support/date_time.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/runtime_error.h"

namespace tarvo {
namespace {

using namespace std::chrono;
using namespace std::chrono_literals;

LocalTime At(year_month_day date, seconds time) { return local_days(date) + time; }

TEST(GeneralDate, AlwaysShowsTheTime) {
  EXPECT_EQ(GeneralDate(At(2026y / 11 / 21, 10h + 32min + 7s)), "2026-11-21 10:32:07");
  EXPECT_EQ(GeneralDate(At(2027y / 1 / 2, 0s)), "2027-01-02 00:00:00");
}

TEST(DateStamp, HasFourteenDigits) {
  EXPECT_EQ(DateStamp(At(2026y / 3 / 4, 5h + 6min + 7s)), "20260304050607");
}

TEST(ParseDateTime, ReadsWhatTheProgramWritesAndWhatPeopleWrite) {
  const struct {
    const char* text;
    LocalTime time;
  } cases[] = {
      {"2026-11-21 10:32:07", At(2026y / 11 / 21, 10h + 32min + 7s)},
      {" 2026-11-21 ", At(2026y / 11 / 21, 0s)},
      {"2026/2/3 4:05", At(2026y / 2 / 3, 4h + 5min)},
      {"12/31/2026 11:59:59 PM", At(2026y / 12 / 31, 23h + 59min + 59s)},
      {"1/2/2026 12:00 am", At(2026y / 1 / 2, 0s)},
      {"11-21-2026", At(2026y / 11 / 21, 0s)},
      {"21/11/2026 10:32:07", At(2026y / 11 / 21, 10h + 32min + 7s)},
      {"21.11.2026 10:32", At(2026y / 11 / 21, 10h + 32min)},
      {"2.3.2026", At(2026y / 3 / 2, 0s)},
      {"2026.11.21", At(2026y / 11 / 21, 0s)},
      {"11/21/26", At(2026y / 11 / 21, 0s)},
      {"1/2/99 1:00 PM", At(1999y / 1 / 2, 13h)},
      {"12:30 PM", At(1899y / 12 / 30, 12h + 30min)},
      {"2028-02-29 00:00:00", At(2028y / 2 / 29, 0s)},
      {"1/31/2026", At(2026y / 1 / 31, 0s)},
      {"12/1/2026", At(2026y / 12 / 1, 0s)},
      {"13/1/2026", At(2026y / 1 / 13, 0s)},
      {"31.12.2026", At(2026y / 12 / 31, 0s)},
      {"12.1.2026", At(2026y / 1 / 12, 0s)},
      {"2026-11-21  10:32", At(2026y / 11 / 21, 10h + 32min)},
      {"2026-11-21 10:32PM", At(2026y / 11 / 21, 22h + 32min)},
      {"11:59:59 aM", At(1899y / 12 / 30, 11h + 59min + 59s)},
      {"23:59:59", At(1899y / 12 / 30, 23h + 59min + 59s)},
      {"12:00 PM", At(1899y / 12 / 30, 12h)},
      {"1:00 AM", At(1899y / 12 / 30, 1h)},
  };
  for (const auto& c : cases) EXPECT_EQ(ParseDateTime(c.text), c.time) << c.text;
}

TEST(ParseDateTime, TakesAYearOfTwoDigitsForTheNearestOne) {
  const struct {
    const char* text;
    year whole;
  } cases[] = {{"1/1/0", 2000y},  {"1/1/1", 2001y},   {"1/1/29", 2029y}, {"1/1/30", 1930y},
               {"1/1/99", 1999y}, {"1/1/100", 100y},  {"100-1-1", 100y}, {"101-1-1", 101y},
               {"1/1/101", 101y}, {"1.1.9999", 9999y}};
  for (const auto& c : cases) EXPECT_EQ(ParseDateTime(c.text), At(c.whole / 1 / 1, 0s)) << c.text;
}

TEST(ParseDateTime, RefusesEverythingElse) {
  for (const char* text : {"",
                           "99-1-1",
                           "12026-11-21",
                           "2026-111-21",
                           "2026-11-021x",
                           "2026-11-32",
                           "2026-11-257",
                           "2026-11-31",
                           "2026-0-1",
                           "2026-1-0",
                           "0/1/2026",
                           "13/13/2026",
                           "13.13.2026",
                           "202611~21",
                           "202611-21",
                           "-11-2026",
                           "/11/2026",
                           "11--2026",
                           "11/21/",
                           "11/21/-26",
                           "11~21~2026",
                           "2026-11-21 ten",
                           "2026-11-21 10:00 2026-11-21",
                           "11-21-202610:30",
                           "010:32",
                           "10:032",
                           "10:032:07",
                           "10:32:007",
                           "10:60",
                           "10:00:60",
                           "24:00",
                           "10:",
                           ":30",
                           "10::30",
                           "10:30:",
                           "10:-3",
                           "-0:30",
                           "10.30",
                           "10:30 XM",
                           "10:30 A",
                           "10:30 AMPM",
                           "0:30 PM",
                           "13:30 AM",
                           "n/a",
                           "yesterday",
                           "2026-13-01",
                           "2026-02-30",
                           "2027-02-29 00:00:00",
                           "2026-11-21x",
                           "2026-11-21 25:00",
                           "2026-11-21 10:60",
                           "2026-11-21 10:00:61",
                           "2026-11-21 10",
                           "13:00 PM",
                           "0:30 AM",
                           "2026-11",
                           "13-21-2026",
                           "31/2/2026",
                           "21/11-2026",
                           "-1:00",
                           "2026-11-21 10:00:00 AMx",
                           "20261121"}) {
    try {
      ParseDateTime(text);
      ADD_FAILURE() << '"' << text << '"';
    } catch (const RuntimeError& fault) {
      EXPECT_EQ(fault.Number(), 13) << text;
    }
  }
}

TEST(DateOfNumber, CountsDaysFromTheZeroDateTime) {
  const struct {
    double number;
    LocalTime time;
  } cases[] = {
      {0, At(1899y / 12 / 30, 0s)},
      {1, At(1899y / 12 / 31, 0s)},
      {0.5, At(1899y / 12 / 30, 12h)},
      {-1.25, At(1899y / 12 / 29, 6h)},
      {46347.4390856481, At(2026y / 11 / 21, 10h + 32min + 17s)},
      {-657434, At(100y / 1 / 1, 0s)},
      {2958465.75, At(9999y / 12 / 31, 18h)},
  };
  for (const auto& c : cases) EXPECT_EQ(DateOfNumber(c.number), c.time) << c.number;
  for (const double number : {-657435.0, 2958466.0, 1e300, -1e300, std::nan("")}) {
    EXPECT_THROW(DateOfNumber(number), RuntimeError) << number;
  }
}

TEST(ParseDateTime, GivesBackEveryMomentThatWasWritten) {
  for (LocalTime time = At(2026y / 1 / 1, 13s); time < At(2029y / 1 / 1, 0s);
       time += 977min + 11s) {
    EXPECT_EQ(ParseDateTime(GeneralDate(time)), time) << GeneralDate(time);
  }
}

}  // namespace
}  // namespace tarvo
