#include "platform/mersenne_random.h"
#include "tests/randomizer/randomizer_story.h"

namespace tarvo {
namespace {

class Engine : public RandomizerStory {
 protected:
  /// Loads the ranges, puts the server file and runs.
  void RunOn(const std::string& file, const std::string& ranges) {
    PutRanges(ranges);
    Load();
    NewLog();
    PutServerFile(file);
    Page().Command2.Click();
  }
};

TEST_F(Engine, DrawsEachNamedSettingAnew) {
  machine.random.Script({0.4333, 0.5});
  RunOn("// rates\r\nbase_exp_rate: 100\r\njob_exp_rate:100\r\npk_mode: no\r\n",
        Range("base_exp_rate", "100", "300") + Range("job_exp_rate", "100", "250"));
  EXPECT_EQ(ServerFile(), "// rates\r\nbase_exp_rate: 187\r\njob_exp_rate: 175\r\npk_mode: no\r\n");
  EXPECT_EQ(NewLog(),
            "3 Starting Randomizer - Updating battle_athena.conf\n"
            "3 > base_exp_rate (100~300): 187\n"
            "3 > job_exp_rate (100~250): 175\n"
            "3 Randomize was succesfull, 2 change(s)\n");
}

TEST_F(Engine, WithoutRangesNothingIsReadOrWritten) {
  Load();
  machine.recorder.Forget();
  Page().Command2.Click();
  EXPECT_EQ(NewLog(), "3 Randomizer Information: Nothing to do!\n");
  EXPECT_EQ(machine.recorder.Calls(), std::vector<std::string>());
}

TEST_F(Engine, LivesWithoutAnyOfItsData) {
  Begin();
  machine.recorder.Forget();
  Page().Command2.Click();
  EXPECT_EQ(NewLog(), "3 Randomizer Information: Nothing to do!\n");
  EXPECT_EQ(machine.recorder.Calls(), std::vector<std::string>());
}

TEST_F(Engine, AFileThatIsGoneSinceTheStartIsTold) {
  PutRanges(Range("base_exp_rate", "1", "2"));
  Load();
  machine.files.Remove(kServerFile);
  Page().Command2.Click();
  EXPECT_EQ(NewLog(),
            "2 Randomizer Error: C:\\srv\\conf\\battle_athena.conf file can't be loaded\n");
  EXPECT_FALSE(machine.files.Has(kServerFile));
}

TEST_F(Engine, AFileLockedByTheServerIsToldAndLeftAlone) {
  PutRanges(Range("base_exp_rate", "1", "2"));
  Load();
  const std::string before = ServerFile();
  machine.files.LockForReading(kServerFile);
  Page().Command2.Click();
  EXPECT_EQ(NewLog(),
            "2 Randomizer Error: C:\\srv\\conf\\battle_athena.conf file can't be loaded\n");
  EXPECT_EQ(ServerFile(), before);
}

TEST_F(Engine, AReadOnlyFileIsToldAndKeepsItsBytes) {
  PutRanges(Range("base_exp_rate", "1", "2"));
  Load();
  const std::string before = ServerFile();
  machine.files.ProtectFromWriting(kServerFile);
  Page().Command2.Click();
  EXPECT_EQ(NewLog(),
            "3 Starting Randomizer - Updating battle_athena.conf\n"
            "3 > base_exp_rate (1~2): 1\n"
            "2 Can't write C:\\srv\\conf\\battle_athena.conf file.\n");
  EXPECT_EQ(ServerFile(), before);
  EXPECT_EQ(machine.eventLog.Entries().back(), "StringToFile: Error 5\r\nAccess is denied.");
}

TEST_F(Engine, ChangesTheMatchingLinesAndNoOtherByte) {
  const struct {
    const char* line;
    const char* after;
  } cases[] = {
      {"rate: 100", "rate: 7"},
      {"rate:100", "rate: 7"},
      {"rate: 100 // old", "rate: 7"},
      {"rate: yes", "rate: 7"},
      {"rate:", "rate: 7"},
      {"rate: 1: 2", "rate: 7"},
      {"rate:\t100\t", "rate: 7"},
      {"// rate: 100", "// rate: 100"},
      {"/rate: 100", "/rate: 100"},
      {" // rate: 100", " // rate: 100"},
      {" rate: 100", " rate: 100"},
      {"rate : 100", "rate : 100"},
      {"Rate: 100", "Rate: 100"},
      {"rates: 100", "rates: 100"},
      {"my_rate: 100", "my_rate: 100"},
      {"rate 100", "rate 100"},
      {"rate", "rate"},
      {"", ""},
      {"rate\n: 100", "rate\n: 100"},
      {"\xEF\xBB\xBFrate: 100", "\xEF\xBB\xBFrate: 100"},
  };
  for (const auto& c : cases) {
    const std::string before = std::string("\x80\xFF // a\r\n") + c.line + "\r\n\tlast\r";
    RunOn(before, Range("rate", "7", "7"));
    EXPECT_EQ(ServerFile(), std::string("\x80\xFF // a\r\n") + c.after + "\r\n\tlast\r") << c.line;
  }
}

TEST_F(Engine, KeepsTheLineEndsOfEveryFile) {
  const std::string nul(1, '\0');
  const struct {
    std::string before;
    std::string after;
  } cases[] = {
      {"", ""},
      {"rate: 1", "rate: 7"},
      {"rate: 1\r\n", "rate: 7\r\n"},
      {"\r\nrate: 1\r\n\r\n", "\r\nrate: 7\r\n\r\n"},
      {"\r\n\r\n", "\r\n\r\n"},
      {"a: 1\nrate: 1\nb: 2\n", "a: 1\nrate: 1\nb: 2\n"},
      {"rate: 1\nb: 2\n", "rate: 7"},
      {"rate: 1\rb: 2\r\nx\n", "rate: 7\r\nx\n"},
      {"\rrate: 1\r\r\nrate: 2", "\rrate: 1\r\r\nrate: 7"},
      {"rate: 1" + nul + "x\r\n" + nul + nul, "rate: 7\r\n" + nul + nul},
      {nul + nul + nul, nul + nul + nul},
  };
  for (const auto& c : cases) {
    RunOn(c.before, Range("rate", "7", "7"));
    EXPECT_EQ(ServerFile(), c.after) << c.before;
  }
}

TEST_F(Engine, AnEmptyFileIsReadAndWrittenEmpty) {
  RunOn("", Range("rate", "1", "9"));
  EXPECT_EQ(NewLog(),
            "3 Starting Randomizer - Updating battle_athena.conf\n"
            "3 Randomize was succesfull, 1 change(s)\n");
  EXPECT_TRUE(machine.files.Has(kServerFile));
  EXPECT_EQ(ServerFile(), "");
}

TEST_F(Engine, EveryLineOfANameGetsADrawOfItsOwn) {
  machine.random.Script({0, 0.99, 0.5});
  RunOn("rate: 1\r\nother: 1\r\nrate: 2\r\nrate: 3\r\n", Range("rate", "1", "10"));
  EXPECT_EQ(ServerFile(), "rate: 1\r\nother: 1\r\nrate: 10\r\nrate: 6\r\n");
}

TEST_F(Engine, DrawsInTheOrderOfTheFieldsAndThenOfTheLines) {
  machine.random.Script({0, 0.25, 0.5, 0.75});
  RunOn("b: 0\r\na: 0\r\nb: 0\r\na: 0\r\n", Range("a", "0", "99") + Range("b", "0", "99"));
  EXPECT_EQ(ServerFile(), "b: 50\r\na: 0\r\nb: 75\r\na: 25\r\n");
  EXPECT_EQ(NewLog(),
            "3 Starting Randomizer - Updating battle_athena.conf\n"
            "3 > a (0~99): 0\n"
            "3 > a (0~99): 25\n"
            "3 > b (0~99): 50\n"
            "3 > b (0~99): 75\n"
            "3 Randomize was succesfull, 2 change(s)\n");
}

TEST_F(Engine, OfTwoRangesOfOneNameTheLastDrawStays) {
  machine.random.Script({0, 0});
  RunOn("a: 0\r\n", Range("a", "10", "19") + Range("a", "30", "39"));
  EXPECT_EQ(ServerFile(), "a: 30\r\n");
  EXPECT_EQ(NewLog(),
            "3 Starting Randomizer - Updating battle_athena.conf\n"
            "3 > a (10~19): 10\n"
            "3 > a (30~39): 30\n"
            "3 Randomize was succesfull, 2 change(s)\n");
}

TEST_F(Engine, ARangeOfOneNumberIsWrittenWithoutADraw) {
  RunOn("base_exp_rate: 5\r\n", Range("base_exp_rate", "100", "100"));
  EXPECT_EQ(ServerFile(), "base_exp_rate: 100\r\n");
  EXPECT_EQ(NewLog(),
            "3 Starting Randomizer - Updating battle_athena.conf\n"
            "3 > base_exp_rate (100~100): 100 - Nothing to calc\n"
            "3 Randomize was succesfull, 1 change(s)\n");
  EXPECT_EQ(machine.recorder.CountOf("random.fraction"), 0u);
  EXPECT_EQ(machine.recorder.CountOf("random.reseed"), 1u);
}

TEST_F(Engine, ReversedRoundedAndMissingBounds) {
  const double last = 1 - 0x1p-53;
  const struct {
    const char* element;
    const char* told;
  } cases[] = {
      {"\t<r Min=\"300\" Max=\"100\"/>\r\n", "3 > r (100~300): 300\n"},
      {"\t<r Min=\"2.5\" Max=\"3.5\"/>\r\n", "3 > r (2~4): 4\n"},
      {"\t<r Max=\"5\"/>\r\n", "3 > r (0~5): 5\n"},
      {"\t<r Min=\"-5\"/>\r\n", "3 > r (-5~0): 0\n"},
      {"\t<r Min=\"few\" Max=\"many\"/>\r\n", "3 > r (0~0): 0 - Nothing to calc\n"},
      {"\t<r/>\r\n", "3 > r (0~0): 0 - Nothing to calc\n"},
      {"\t<r Min=\"-2147483648\" Max=\"2147483647\"/>\r\n",
       "3 > r (-2147483648~2147483647): 2147483647\n"},
      {"\t<r Min=\"2147483647\" Max=\"2147483648\"/>\r\n",
       "3 > r (2147483647~2147483648): 2147483648\n"},
      {"\t<r Min=\"1e15\" Max=\"1e15\"/>\r\n",
       "3 > r (1000000000000000~1000000000000000): 1000000000000000 - Nothing to calc\n"},
  };
  for (const auto& c : cases) {
    machine.random.Script({last});
    RunOn("r: 1\r\n", c.element);
    EXPECT_EQ(NewLog(), std::string("3 Starting Randomizer - Updating battle_athena.conf\n") +
                            c.told + "3 Randomize was succesfull, 1 change(s)\n");
    machine.random.Drop();
  }
}

TEST_F(Engine, TheSizeOfTheSetIsTold) {
  RunOn("b: 1\r\n", Range("a", "1", "2") + Range("b", "1", "2") + Range("c", "1", "2"));
  EXPECT_EQ(NewLog(),
            "3 Starting Randomizer - Updating battle_athena.conf\n"
            "3 > b (1~2): 1\n"
            "3 Randomize was succesfull, 3 change(s)\n");
}

TEST_F(Engine, ReadsTheServerFileAnewAndTouchesNoDataOfItsOwn) {
  RunOn("base_exp_rate: 5\r\n", Range("base_exp_rate", "1", "2"));
  EXPECT_EQ(Page().rIni.Text(), "1");
  const std::string ranges = RangesFile();
  PutServerFile("base_exp_rate: 50\r\nnew: 3\r\n");
  Page().Command2.Click();
  EXPECT_EQ(ServerFile(), "base_exp_rate: 1\r\nnew: 3\r\n");
  EXPECT_EQ(RangesFile(), ranges);
  EXPECT_EQ(Lines(Page().cmdParam), "base_exp_rate\njob_exp_rate\ndrop_rate\n");
}

TEST_F(Engine, AHundredMegabytesKeepTheirBytes) {
  std::string file = "// head\r\n";
  const std::string filler = "// " + std::string(94, 'x') + "\xFE\r\n";
  while (file.size() < 100u * 1024 * 1024) file += filler;
  const std::string tail = std::string(10000000, 'y');
  RunOn(file + "rate: 1\r\n" + tail, Range("rate", "7", "7"));
  EXPECT_TRUE(ServerFile() == file + "rate: 7\r\n" + tail);
}

TEST_F(Engine, AHundredMegabytesWithoutLineEndsAreOneLine) {
  const std::string file = "other: " + std::string(100u * 1024 * 1024, '\n') + "rate: 1\n";
  RunOn(file, Range("rate", "7", "7"));
  EXPECT_TRUE(ServerFile() == file);
}

/// The rules once more, as plainly as they can be said: each range over all lines.
std::string DrawnPlainly(const std::string& file, const std::vector<std::string>& names) {
  std::vector<std::string> lines(1);
  for (std::size_t i = 0; i < file.size(); ++i) {
    if (file.compare(i, 2, "\r\n") == 0) {
      lines.emplace_back();
      ++i;
    } else {
      lines.back() += file[i];
    }
  }
  for (const std::string& name : names) {
    for (std::string& line : lines) {
      const bool candidate = !line.empty() && line[0] != '/' && line.find(':') != line.npos;
      if (candidate && line.substr(0, line.find(':')) == name) line = name + ": 7";
    }
  }
  std::string joined = lines[0];
  for (std::size_t i = 1; i < lines.size(); ++i) joined += "\r\n" + lines[i];
  return joined;
}

TEST_F(Engine, AgreesWithThePlainRulesOnManyFiles) {
  const std::vector<std::string> names = {"a", "b", "a", "ab", "c"};
  std::string ranges;
  for (const std::string& name : names) ranges += Range(name, "7", "7");
  const char* pieces[] = {"a", "b", "c", ":", ": ", "\r\n", "\r", "\n", "/", " ", "12", "x"};
  MersenneRandom random;
  random.Reseed(4);
  for (int i = 0; i < 2000; ++i) {
    std::string file;
    const auto length = static_cast<int>(random.Fraction() * 30);
    for (int j = 0; j < length; ++j) {
      file += pieces[static_cast<std::size_t>(random.Fraction() * std::size(pieces))];
    }
    if (i == 0) {
      RunOn(file, ranges);
    } else {
      PutServerFile(file);
      Page().Command2.Click();
    }
    EXPECT_EQ(ServerFile(), DrawnPlainly(file, names)) << file;
  }
}

}  // namespace
}  // namespace tarvo
