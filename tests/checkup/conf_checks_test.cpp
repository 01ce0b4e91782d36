#include "checkup/conf_checks.h"

#include "tests/checkup/check_up_desk.h"

namespace tarvo {
namespace {

class ConfChecks : public CheckUpDesk {};

std::string WithBareFeeds(std::string text) {
  std::erase(text, '\r');
  return text;
}

TEST_F(ConfChecks, ARootInOrderHasNothingToTell) { EXPECT_EQ(Told(), ""); }

TEST_F(ConfChecks, BareLineFeedsMakeOneLineAndLoseItsKeys) {
  PutMapConf(WithBareFeeds("// The map server\r\nmap_ip:127.0.0.1\r\nmap_port: 5121\r\n"));
  EXPECT_EQ(Told(),
            "error conf-line-ends [conf\\map_athena.conf] The file has bare line feeds and counts "
            "as one single line.\n"
            "error port [Map] The port is 0, so nothing can be probed.\n");
}

TEST_F(ConfChecks, AFewBareLineFeedsThatLoseNoKeyAreAWarning) {
  PutMapConf("map_ip:127.0.0.1\r\nmap_port: 5121\r\n// one\n// two\n");
  EXPECT_EQ(Told(),
            "warning conf-line-ends [conf\\map_athena.conf] 2 lines, the first of them line 3, end "
            "with a bare line feed and count as one line with what follows.\n");
}

TEST_F(ConfChecks, AKeyBehindABareLineFeedIsToldOnceWithItsCause) {
  PutMapConf("map_ip:127.0.0.1\r\n// next\nmap_port: 5121\r\n");
  EXPECT_EQ(Told(),
            "error conf-line-ends [conf\\map_athena.conf] 1 line, the first of them line 2, end "
            "with a bare line feed and count as one line with what follows.\n"
            "error port [Map] The port is 0, so nothing can be probed.\n");
}

TEST_F(ConfChecks, TheFileOfTheRandomizerIsLookedAtToo) {
  Put("conf\\battle_athena.conf", WithBareFeeds(UsualBattleConf()));
  EXPECT_EQ(Told(),
            "warning conf-line-ends [conf\\battle_athena.conf] The file has bare line feeds and "
            "counts as one single line.\n");
}

struct MissedKey {
  const char* line;
  const char* told;
};

class MissedKeys : public ConfChecks, public ::testing::WithParamInterface<MissedKey> {};

TEST_P(MissedKeys, IsToldWithItsLineAndReason) {
  PutMapConf(std::string("// The map server\r\nmap_port: 5121\r\n") + GetParam().line + "\r\n");
  EXPECT_EQ(Told(), GetParam().told);
}

#define MISSED(severity, reason)                                                             \
  severity                                                                                   \
      " conf-key-missed [conf\\map_athena.conf, line 3] The key \"map_ip:\" does not count " \
      "here, since " reason ".\n"

INSTANTIATE_TEST_SUITE_P(
    Lines, MissedKeys,
    ::testing::Values(
        MissedKey{"Map_IP: 10.0.0.1", MISSED("warning", "its letter case is another")},
        MissedKey{"  map_ip: 10.0.0.1", MISSED("warning", "blanks stand before it")},
        MissedKey{"\tmap_ip: 10.0.0.1", MISSED("warning", "blanks stand before it")},
        MissedKey{"map_ip : 10.0.0.1", MISSED("warning", "a blank stands before its colon")},
        MissedKey{"//map_ip: 10.0.0.1", MISSED("note", "it is commented out")},
        MissedKey{"// map_ip: 10.0.0.1", MISSED("note", "it is commented out")},
        MissedKey{"\xEF\xBB\xBFmap_ip: 10.0.0.1",
                  MISSED("warning", "a byte order mark stands before it")},
        MissedKey{"\xEF\xBB\xBFthe_map_ip: 10.0.0.1", ""}, MissedKey{"map_ip", ""},
        MissedKey{"map_ip 10.0.0.1", ""}, MissedKey{"the_map_ip: 10.0.0.1", ""},
        MissedKey{"map_ips: 10.0.0.1", ""}, MissedKey{"", ""}));

TEST_F(ConfChecks, ACommentedPortWantsAttention) {
  PutMapConf("map_ip:127.0.0.1\r\n//map_port: 5121\r\n");
  EXPECT_TRUE(Told().starts_with("warning conf-key-missed [conf\\map_athena.conf, line 2]"))
      << Told();
}

TEST_F(ConfChecks, AKeyThatCountsElsewhereIsNotMissed) {
  PutMapConf("//map_ip: 1.2.3.4\r\nMAP_PORT: 1\r\nmap_ip:127.0.0.1\r\nmap_port: 5121\r\n");
  EXPECT_EQ(Told(), "");
}

TEST_F(ConfChecks, ALineWrittenWronglyTellsMoreThanARemark) {
  PutMapConf("map_port: 5121\r\n//map_ip: 1.2.3.4\r\n map_ip: 127.0.0.1\r\n");
  EXPECT_TRUE(Told().starts_with("warning conf-key-missed [conf\\map_athena.conf, line 3]"))
      << Told();
}

TEST_F(ConfChecks, OfAnEndlessFileOnlyTheBeginningIsRead) {
  std::string text(CheckUp::kMostBytes + 100, '/');
  text += "\r\nmap_port: 5121\r\n";
  PutMapConf(text);
  EXPECT_EQ(Told(),
            "note conf-line-ends [conf\\map_athena.conf] The file is so large that only its "
            "beginning was checked.\n");
  EXPECT_LE(machine.inspection.LongestRead(), CheckUp::kMostBytes + 1);
}

TEST(LineEnds, AreCountedByKind) {
  const LineEnds ends = LineEndsOf("a\r\nb\nc\r\n\n");
  EXPECT_EQ(ends.whole, 2u);
  EXPECT_EQ(ends.bare, 2u);
  EXPECT_EQ(ends.firstBare, 2u);
}

TEST(LineEnds, AreMadeWholeAndNothingElseChanges) {
  EXPECT_EQ(WithWholeLineEnds("\na\r\nb\nc\rd\n"), "\r\na\r\nb\r\nc\rd\r\n");
  EXPECT_EQ(WithWholeLineEnds(""), "");
}

}  // namespace
}  // namespace tarvo
