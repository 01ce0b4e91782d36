#include "core/status_log.h"

#include <gtest/gtest.h>

#include "form/log_screen.h"
#include "form/status_colours.h"
#include "tests/simulation/sim_machine.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

class Log : public ::testing::Test {
 protected:
  Log() {
    for (const char* item :
         {"Everything", "Errors & Warn & Extra", "Errors & Warnings", "Only Errors"}) {
      LogH.AddItem(item);
    }
    LogH.SetListIndex(0);
    log.listeners = {[this](const LogLine& line) { ShowLine(RTLog, line); },
                     [this](const LogLine& line) { file.Take(line); }};
  }
  std::string File(const std::string& name) { return machine.files.TextOf("C:\\srv\\" + name); }

  SimMachine machine;
  RichTextView RTLog{{kStampColour, kInfoColour, kNoticeColour, kAlertColour, kExtraColour}};
  CheckBox WLog;
  DropDownList LogH;
  LogFile file{WLog, LogH, machine.files, machine.clock, "C:\\srv"};
  StatusLog log{machine.clock};
};

/// Keeps what a view was told to append.
struct Pieces : RichTextMirror {
  void Appended(const ColouredText& piece) override { pieces.push_back(piece); }
  void Replaced() override { ++replacements; }
  std::vector<ColouredText> pieces;
  int replacements = 0;
};

TEST_F(Log, ALineIsItsStampInNavyItsTextInTheLevelsColourAndALineEnd) {
  const struct {
    int level;
    Colour colour;
  } cases[] = {{0, Rgb(0, 128, 0)}, {1, Rgb(255, 128, 0)}, {2, Rgb(255, 0, 0)}, {3, Rgb(0, 0, 192)},
               {4, Rgb(0, 0, 192)}, {7, Rgb(0, 0, 192)},   {-1, Rgb(0, 0, 192)}};
  for (const auto& c : cases) {
    Pieces pieces;
    RTLog.SetRichTextMirror(&pieces);
    log.LogStatus("Text", LogLevel(c.level));
    ASSERT_EQ(pieces.pieces.size(), 3u) << c.level;
    EXPECT_EQ(pieces.pieces[0].text, "2026-11-21 10:00:00: ") << c.level;
    EXPECT_EQ(pieces.pieces[0].colour, Rgb(0, 0, 128)) << c.level;
    EXPECT_EQ(pieces.pieces[1].text, "Text") << c.level;
    EXPECT_EQ(pieces.pieces[1].colour, c.colour) << c.level;
    EXPECT_EQ(pieces.pieces[2].text, "\r\n") << c.level;
    RTLog.SetRichTextMirror(nullptr);
  }
}

TEST_F(Log, TheScreenShowsEveryLevelWhateverIsSaved) {
  LogH.SetListIndex(3);
  for (int level : {0, 1, 2, 3}) log.LogStatus("Level " + std::to_string(level), LogLevel(level));
  EXPECT_EQ(RTLog.Text(),
            "2026-11-21 10:00:00: Level 0\r\n2026-11-21 10:00:00: Level 1\r\n"
            "2026-11-21 10:00:00: Level 2\r\n2026-11-21 10:00:00: Level 3\r\n");
}

TEST_F(Log, AFileIsWrittenFromTheChosenLevelOn) {
  const struct {
    int index;
    const char* levels;
  } cases[] = {{0, "01237"}, {1, "1237"}, {2, "237"}, {3, "37"}, {-1, "01237"}};
  WLog.SetChecked(true);
  for (const auto& c : cases) {
    machine.files.Remove("C:\\srv\\20261121.log");
    LogH.SetListIndex(c.index);
    for (int level : {0, 1, 2, 3, 7}) log.LogStatus(std::to_string(level), LogLevel(level));
    std::string expected;
    for (const char* level = c.levels; *level; ++level) {
      expected += std::string("2026-11-21 10:00:00: ") + *level + "\r\n";
    }
    EXPECT_EQ(File("20261121.log"), expected) << c.index;
  }
}

TEST_F(Log, WithoutTheBoxNothingIsWrittenWhateverTheLevel) {
  for (int index : {0, 1, 2, 3}) {
    LogH.SetListIndex(index);
    for (int level : {0, 1, 2, 3, 7}) log.LogStatus("x", LogLevel(level));
  }
  EXPECT_EQ(machine.recorder.CountOf("files."), 0u);
}

TEST_F(Log, EachLineGoesIntoTheFileOfItsOwnDay) {
  WLog.SetChecked(true);
  machine.clock.SetLocal(std::chrono::local_days(2026y / 12 / 31) + 23h + 59min + 59s);
  log.LogStatus("Before midnight", kInfo);
  machine.clock.Advance(1000);
  log.LogStatus("At midnight", kInfo);
  EXPECT_EQ(File("20261231.log"), "2026-12-31 23:59:59: Before midnight\r\n");
  EXPECT_EQ(File("20270101.log"), "2027-01-01 00:00:00: At midnight\r\n");
}

TEST_F(Log, ALineThatMidnightOvertakesGoesIntoTheFileOfTheMomentOfWriting) {
  struct Slow : Pieces {
    explicit Slow(SimClock& c) : clock(c) {}
    void Appended(const ColouredText&) override { clock.Advance(1000); }
    SimClock& clock;
  } screen(machine.clock);
  WLog.SetChecked(true);
  machine.clock.SetLocal(std::chrono::local_days(2026y / 12 / 31) + 23h + 59min + 58s);
  RTLog.SetRichTextMirror(&screen);
  log.LogStatus("Overtaken", kInfo);
  RTLog.SetRichTextMirror(nullptr);
  EXPECT_EQ(File("20270101.log"), "2026-12-31 23:59:58: Overtaken\r\n");
  EXPECT_FALSE(machine.files.Exists("C:\\srv\\20261231.log"));
}

TEST_F(Log, AClockSetBackWritesIntoTheEarlierDaysFileAgain) {
  WLog.SetChecked(true);
  log.LogStatus("First", kInfo);
  machine.clock.SetLocal(std::chrono::local_days(2026y / 11 / 20) + 8h);
  log.LogStatus("Set back", kInfo);
  machine.clock.SetLocal(std::chrono::local_days(2026y / 11 / 21) + 11h);
  log.LogStatus("Set forward", kInfo);
  EXPECT_EQ(File("20261120.log"), "2026-11-20 08:00:00: Set back\r\n");
  EXPECT_EQ(File("20261121.log"),
            "2026-11-21 10:00:00: First\r\n2026-11-21 11:00:00: Set forward\r\n");
}

TEST_F(Log, AFileThatCannotBeWrittenIsPassedOverAndTheScreenHasItsLine) {
  WLog.SetChecked(true);
  machine.files.RefuseAppends(true);
  log.LogStatus("Lost to the disk", kAlert);
  machine.files.RefuseAppends(false);
  log.LogStatus("Kept", kAlert);
  EXPECT_EQ(RTLog.Text(), "2026-11-21 10:00:00: Lost to the disk\r\n2026-11-21 10:00:00: Kept\r\n");
  EXPECT_EQ(File("20261121.log"), "2026-11-21 10:00:00: Kept\r\n");
}

TEST_F(Log, BytesAboveAsciiAndSignsOfTheSourceComeOutAsTheyWentIn) {
  WLog.SetChecked(true);
  const std::string text = "{caf\xE9} \\par C:\\srv\t\x01\xFF";
  log.LogStatus(text, kInfo);
  EXPECT_EQ(RTLog.Text(), "2026-11-21 10:00:00: " + text + "\r\n");
  EXPECT_EQ(File("20261121.log"), "2026-11-21 10:00:00: " + text + "\r\n");
}

TEST_F(Log, SegmentsMakeOneLineOnTheScreenAndInTheFile) {
  WLog.SetChecked(true);
  log.AppendStatus(kNotice, {{LogInk::Stamp, "a"}, {LogInk::Alert, "b"}, {LogInk::Info, "c"}});
  EXPECT_EQ(RTLog.Text(), "abc\r\n");
  EXPECT_EQ(File("20261121.log"), "abc\r\n");
}

TEST_F(Log, TheViewIsWithinItsLimitBeforeEachLineAndKeepsHeaderNewestAndColours) {
  const std::string header = RTLog.Source().substr(0, RTLog.SourceLength() - 3);
  std::size_t trims = 0;
  for (int i = 0; i < 2000; ++i) {
    Pieces pieces;
    const std::size_t before = RTLog.SourceLength();
    RTLog.SetRichTextMirror(&pieces);
    log.LogStatus("Line " + std::to_string(i), LogLevel(i % 4));
    RTLog.SetRichTextMirror(nullptr);
    trims += static_cast<std::size_t>(pieces.replacements);
    EXPECT_EQ(pieces.replacements, before > kLongestLogSource ? 1 : 0) << before;
    EXPECT_LE(RTLog.SourceLength(), kLongestLogSource + 100);
    EXPECT_TRUE(RTLog.Text().ends_with(": Line " + std::to_string(i) + "\r\n"));
  }
  EXPECT_GT(trims, 100u);
  const std::string source = RTLog.Source();
  EXPECT_EQ(source.substr(0, header.size()), header);
  // Every line that is left is the end of the whole log, each in its colours.
  std::string expected = "}\r\n";
  for (int i = 1999; expected.size() + header.size() < source.size(); --i) {
    expected = "\\cf1 2026-11-21 10:00:00: \\cf" + std::to_string(i % 4 + 2) + " Line " +
               std::to_string(i) + "\\par\r\n" + expected;
  }
  EXPECT_EQ(source, header + expected);
}

/// A source of a header of six lines and these lines.
std::string SourceOf(const std::vector<std::string>& lines) {
  std::string source = "h1\r\nh2\r\nh3\r\nh4\r\nh5\r\nh6\r\n";
  for (const std::string& line : lines) source += line + "\r\n";
  return source + "}\r\n";
}

TEST(TrimmedLog, ASourceAtTheLimitStaysAndOneLongerLosesItsThreeOldestLines) {
  const std::size_t frame = SourceOf({"a", "b", "c", "d", ""}).size();
  const std::string fits = SourceOf({"a", "b", "c", "d", std::string(25000 - frame, 'x')});
  ASSERT_EQ(fits.size(), 25000u);
  EXPECT_EQ(TrimmedLogSource(fits), fits);
  const std::string newest(25001 - frame, 'x');
  EXPECT_EQ(TrimmedLogSource(SourceOf({"a", "b", "c", "d", newest})), SourceOf({"d", newest}));
}

TEST(TrimmedLog, RoundsGoOnUntilTheSourceIsShortEnough) {
  const std::string half(12000, 'x');
  EXPECT_EQ(TrimmedLogSource(SourceOf({"1", "2", "3", half, "5", "6", half, "8", half})),
            SourceOf({half, "8", half}));
}

TEST(TrimmedLog, TheNewestLineStaysHoweverLongItIs) {
  const std::string huge(60000, 'x');
  EXPECT_EQ(TrimmedLogSource(SourceOf({"1", "2", huge})), SourceOf({huge}));
  EXPECT_EQ(TrimmedLogSource(SourceOf({huge})), SourceOf({huge}));
  EXPECT_EQ(TrimmedLogSource(SourceOf({huge, huge, huge, huge, "last"})), SourceOf({"last"}));
}

TEST(TrimmedLog, AHeaderLongerThanTheLimitIsNoEndlessLoop) {
  const std::string header = std::string(30000, 'h') + "\r\n2\r\n3\r\n4\r\n5\r\n6\r\n";
  EXPECT_EQ(TrimmedLogSource(header + "1\r\n2\r\n}\r\n"), header + "2\r\n}\r\n");
  EXPECT_EQ(TrimmedLogSource(std::string(30000, 'x')), std::string(30000, 'x'));
}

}  // namespace
}  // namespace tarvo
