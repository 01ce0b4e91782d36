#include "tests/randomizer/randomizer_story.h"

namespace tarvo {
namespace {

class Loading : public RandomizerStory {
 protected:
  Fields& Settings() { return Child("Battle_Athena").Fields(); }
  Document& Child(const std::string& name) {
    return *(held_ = life->randomizer.RandomizerDocument().Childs().Child(name));
  }
  /// "name=value" of every setting, one a line.
  std::string SettingLines() {
    std::string lines;
    for (int i = 0; i < Settings().Count(); ++i) {
      lines += Settings().Field(i)->Name() + "=" + Settings().Field(i)->Value() + "\n";
    }
    return lines;
  }

 private:
  Ref<Document> held_ = Document::Create();
};

TEST_F(Loading, OffersTheNumericSettingsOfTheServerFileInItsOrder) {
  Load();
  EXPECT_EQ(SettingLines(), "base_exp_rate=100\njob_exp_rate=100\ndrop_rate=250\n");
  EXPECT_EQ(Lines(Page().cmdParam), "base_exp_rate\njob_exp_rate\ndrop_rate\n");
  EXPECT_EQ(Page().cmdParam.ListIndex(), 0);
  EXPECT_EQ(Page().rIni.Text(), "100");
  EXPECT_EQ(Page().rEnd.Text(), "100");
  EXPECT_EQ(Lines(Page().lstRnd), "");
  EXPECT_EQ(NewLog(), "");
}

TEST_F(Loading, TakesALineOnlyWhenItsSecondPieceIsANumber) {
  const struct {
    const char* line;
    const char* setting;  // "" when it is left out
  } cases[] = {
      {"rate: 100", "rate=100\n"},
      {"rate:100", "rate=100\n"},
      {"rate:\t 7 \t", "rate=7\n"},
      {"rate: -5", "rate=-5\n"},
      {"rate: 1.5", "rate=1.5\n"},
      {"rate: 007", "rate=7\n"},
      {"rate: 1e3", "rate=1000\n"},
      {"rate: &HFF", "rate=255\n"},
      {"rate: 2147483648", "rate=2147483648\n"},
      {"rate: 10: and more", "rate=10\n"},
      {"rate:10:20", "rate=10\n"},
      {":5", "=5\n"},
      {"\x80\xFF_rate: 5", "\x80\xFF_rate=5\n"},
      {"Rate: 5", "Rate=5\n"},
      {"rate: yes", ""},
      {"rate: 10 // note", ""},
      {"rate: ", ""},
      {"rate:", ""},
      {"rate 10", ""},
      {"rate: C:\\srv", ""},
      {"path: C:10", ""},
      {"rate: 1,000", ""},
      {"rate: 1 000", ""},
      {"rate: --1", ""},
      {"rate: &H", ""},
      {"/rate: 10", ""},
      {"// rate: 10", ""},
      {"", ""},
      {"rate : 10", ""},
      {" rate: 10", ""},
      {"the rate: 10", ""},
      {" // rate: 10", ""},
  };
  for (const auto& c : cases) {
    PutServerFile(c.line);
    Load();
    EXPECT_EQ(SettingLines(), c.setting) << '"' << c.line << '"';
  }
}

TEST_F(Loading, SeesAFileOfBareLineFeedsAsOneLine) {
  PutServerFile("base: 1\njob: 2\ndrop: 3\n");
  Load();
  EXPECT_EQ(SettingLines(), "");
  PutServerFile("base: 1\n");
  Load();
  EXPECT_EQ(SettingLines(), "");
}

TEST_F(Loading, AnEmptyServerFileLeavesThePanelEmptyAndLoadsTheRest) {
  PutServerFile("");
  PutRanges(Range("base_exp_rate", "1", "2"));
  PutCalendar(Entry("Mon_08:30", "Yes"));
  Load();
  EXPECT_EQ(Lines(Page().cmdParam), "");
  EXPECT_EQ(Page().cmdParam.ListIndex(), -1);
  EXPECT_EQ(Lines(Page().lstRnd), "base_exp_rate:1 to 2\n");
  EXPECT_EQ(Lines(Page().lstDTRands), "Mon 08:30 restart=Y\n");
}

TEST_F(Loading, AMissingServerFileIsToldAndNothingElseIsRead) {
  machine.files.Remove(kServerFile);
  PutRanges(Range("base_exp_rate", "1", "2"));
  PutCalendar(Entry("Mon_08:30", "Yes"));
  Load();
  EXPECT_EQ(NewLog(), "2 C:\\srv\\conf\\battle_athena.conf file can't be loaded\n");
  EXPECT_EQ(Lines(Page().cmdParam), "");
  EXPECT_EQ(Lines(Page().lstRnd), "");
  EXPECT_EQ(Lines(Page().lstDTRands), "");
  EXPECT_EQ(life->randomizer.RandomizerDocument().Childs().Count(), 0);
  EXPECT_EQ(machine.recorder.CountOf("files.read(C:\\srv\\r"), 0u);
}

TEST_F(Loading, ALockedServerFileIsToldLikeAMissingOne) {
  machine.files.LockForReading(kServerFile);
  Load();
  EXPECT_EQ(NewLog(), "2 C:\\srv\\conf\\battle_athena.conf file can't be loaded\n");
}

TEST_F(Loading, RangesAreListedAndShownWithTheirSettings) {
  PutRanges(Range("drop_rate", "-5", "300") + Range("base_exp_rate", "300", "100"));
  Load();
  EXPECT_EQ(Lines(Page().lstRnd), "drop_rate:-5 to 300\nbase_exp_rate:300 to 100\n");
  EXPECT_EQ(Page().rIni.Text(), "300");
  EXPECT_EQ(Page().rEnd.Text(), "100");
  ChooseSetting("drop_rate");
  EXPECT_EQ(Page().rIni.Text(), "-5");
  EXPECT_EQ(Page().rEnd.Text(), "300");
  ChooseSetting("job_exp_rate");
  EXPECT_EQ(Page().rIni.Text(), "100");
  EXPECT_EQ(Page().rEnd.Text(), "100");
}

TEST_F(Loading, MissingFilesLeaveEmptySetsOfTheirNames) {
  Load();
  EXPECT_EQ(Child("Randomize").Name(), "Randomize");
  EXPECT_EQ(Child("Randomize").Fields().Count(), 0);
  EXPECT_EQ(Child("Calendar").Name(), "Calendar");
  EXPECT_EQ(Child("Calendar").Fields().Count(), 0);
  EXPECT_EQ(machine.eventLog.Entries(),
            (std::vector<std::string>{"File not found: C:\\srv\\randomize.xml",
                                      "File not found: C:\\srv\\rndcalendar.xml"}));
}

TEST_F(Loading, UnreadableFilesLeaveEmptySetsOfTheirNames) {
  PutRanges(Range("drop_rate", "1", "2"));
  PutCalendar(Entry("Mon_08:30", "Yes"));
  machine.files.LockForReading(kRangesFile);
  machine.files.LockForReading(kCalendarFile);
  Load();
  EXPECT_EQ(Child("Randomize").Fields().Count(), 0);
  EXPECT_EQ(Child("Calendar").Fields().Count(), 0);
  EXPECT_EQ(machine.eventLog.Entries(),
            (std::vector<std::string>{"I/O error: C:\\srv\\randomize.xml",
                                      "I/O error: C:\\srv\\rndcalendar.xml"}));
}

TEST_F(Loading, TheFieldsStandDirectlyUnderTheNamedChild) {
  PutRanges(Range("drop_rate", "1", "2"));
  Load();
  EXPECT_EQ(Child("Randomize").Name(), "Randomize");
  EXPECT_EQ(Child("Randomize").Childs().Count(), 0);
  ASSERT_EQ(Child("Randomize").Fields().Count(), 1);
  EXPECT_EQ(Child("Randomize").Fields().Field(0)->Name(), "drop_rate");
}

TEST_F(Loading, HandEditedRangesOfAllKinds) {
  const struct {
    const char* file;
    const char* lines;
  } cases[] = {
      {"", ""},
      {"<Randomize/>\r\n", ""},
      {"<?xml version=\"1.0\"?>\r\n<Randomize/>\r\n<!-- end -->\r\n", ""},
      {"<Randomize></Randomize>\r\n", ""},
      {"no document at all", ""},
      {"<", ""},
      {"<Randomize>\r\n<rate Max=\"9\"/>\r\n</Randomize>", "rate: to 9\n"},
      {"<Randomize>\r\n<rate Min=\"9\"/>\r\n</Randomize>", "rate:9 to \n"},
      {"<Randomize>\r\n<rate/>\r\n</Randomize>", "rate: to \n"},
      {"<Randomize>\r\n<rate Min=\"few\" Max=\"many\"/>\r\n</Randomize>", "rate:few to many\n"},
      {"<Randomize>\r\n<nowhere Min=\"1\" Max=\"2\"/>\r\n</Randomize>", "nowhere:1 to 2\n"},
      {"<Randomize>\r\n<rate MIN=\"1\" max=\"2\">text</rate>\r\n</Randomize>", "rate:1 to 2\n"},
      {"<Other>\r\n<rate Min=\"1\" Max=\"2\"/>\r\n</Other>", "rate:1 to 2\n"},
      {"<Randomize>\n<a Min='1' Max='2'/>\n<b Min=\"3\" Max=\"4\"/>\n</Randomize>",
       "a:1 to 2\nb:3 to 4\n"},
  };
  for (const auto& c : cases) {
    machine.files.Put(kRangesFile, c.file);
    Load();
    EXPECT_EQ(Child("Randomize").Name(), "Randomize") << c.file;
    EXPECT_EQ(Lines(Page().lstRnd), c.lines) << c.file;
    life->randomizer.RunRandomizer();
  }
}

TEST_F(Loading, OnlyExactNamesMeet) {
  PutServerFile("rate: 1\r\nRate: 2\r\n");
  PutRanges(Range("Rate", "10", "20"));
  Load();
  EXPECT_EQ(Page().rIni.Text(), "1");
  ChooseSetting("Rate");
  EXPECT_EQ(Page().rIni.Text(), "10");
}

TEST_F(Loading, OfTwoLinesWithOneNameThePanelMeansTheFirst) {
  PutServerFile("rate: 1\r\nother: 3\r\nrate: 2\r\n");
  Load();
  EXPECT_EQ(Lines(Page().cmdParam), "rate\nother\nrate\n");
  Page().cmdParam.Choose(2);
  EXPECT_EQ(Page().rIni.Text(), "1");
  PutRanges(Range("rate", "10", "20"));
  Load();
  Page().cmdParam.Choose(2);
  EXPECT_EQ(Page().rIni.Text(), "10");
  EXPECT_EQ(Settings().Field(2)->Parameters().Count(), 0);
}

TEST_F(Loading, HappensOnce) {
  Load();
  PutServerFile("other: 1\r\n");
  PutRanges(Range("other", "1", "2"));
  life->randomizer.LoadRandomizerFiles();
  EXPECT_EQ(Lines(Page().cmdParam), "base_exp_rate\njob_exp_rate\ndrop_rate\n");
  EXPECT_EQ(Lines(Page().lstRnd), "");
}

TEST_F(Loading, ReadsTheThreeFilesInOrderAndWritesNothing) {
  PutRanges("");
  PutCalendar("");
  Begin();
  machine.recorder.Forget();
  life->randomizer.LoadRandomizerFiles();
  EXPECT_EQ(machine.recorder.Calls(),
            (std::vector<std::string>{
                "files.read(C:\\srv\\conf\\battle_athena.conf)",
                "files.exists(C:\\srv\\randomize.xml)", "files.read(C:\\srv\\randomize.xml)",
                "files.exists(C:\\srv\\rndcalendar.xml)", "files.read(C:\\srv\\rndcalendar.xml)"}));
}

TEST_F(Loading, ACalendarLineStandsForEachEntry) {
  PutCalendar(Entry("Mon_08:30", "Yes") + Entry("Fri_22:00", "No") + Entry("Sat_01:02", "yes") +
              "\t<Sun_00:00/>\r\n" + Entry("a_b_c", "Yes"));
  Load();
  EXPECT_EQ(Lines(Page().lstDTRands),
            "Mon 08:30 restart=Y\nFri 22:00 restart=N\nSat 01:02 restart=N\nSun 00:00 restart=N\n"
            "a b c restart=Y\n");
}

TEST_F(Loading, ThePageBeginsAsDescribed) {
  Begin();
  EXPECT_EQ(Lines(Page().lstDay), "Mon\nTue\nWed\nThu\nFri\nSat\nSun\n");
  EXPECT_EQ(Lines(Page().cmbRstrt), "Yes\nNo\n");
  EXPECT_EQ(Page().txt_Time[0].Text(), "00");
  EXPECT_EQ(Page().txt_Time[1].Text(), "00");
  EXPECT_EQ(Page().txt_Time[0].MaxLength(), 2u);
  EXPECT_EQ(Page().ScrollTime[0].Max(), 23);
  EXPECT_EQ(Page().ScrollTime[1].Max(), 59);
  EXPECT_EQ(Page().txtMxD[0].Text(), "1");
  EXPECT_EQ(Page().txtMxD[1].Text(), "1");
  EXPECT_EQ(Page().rIni.MaxLength(), 9u);
  EXPECT_EQ(Page().rEnd.MaxLength(), 9u);
  EXPECT_EQ(Page().rAdd[0].Caption(), "Update");
  EXPECT_EQ(Page().rAdd[1].Caption(), "Remove");
  EXPECT_EQ(Page().Command2.Caption(), "Randomize Now!");
  EXPECT_EQ(life->calendarTimer.Interval(), 15000u);
  EXPECT_FALSE(life->calendarTimer.Enabled());
}

}  // namespace
}  // namespace tarvo
