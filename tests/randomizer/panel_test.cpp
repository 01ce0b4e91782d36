#include "tests/randomizer/randomizer_story.h"

namespace tarvo {
namespace {

class Panel : public RandomizerStory {
 protected:
  void Update() { Page().rAdd[0].Click(); }
  void Remove() { Page().rAdd[1].Click(); }
  std::string Box() { return machine.boxes.NewTexts(); }
};

TEST_F(Panel, UpdateGivesTheSettingARangeAndWritesTheFile) {
  Load();
  TypeRange("100", "300");
  Update();
  EXPECT_EQ(Lines(Page().lstRnd), "base_exp_rate:100 to 300\n");
  EXPECT_EQ(Page().lstRnd.ListIndex(), 0);
  EXPECT_EQ(RangesFile(), Xml("Randomize", Range("base_exp_rate", "100", "300")));
  ChooseSetting("job_exp_rate");
  TypeRange("100", "250");
  Update();
  EXPECT_EQ(RangesFile(), Xml("Randomize", Range("base_exp_rate", "100", "300") +
                                               Range("job_exp_rate", "100", "250")));
  EXPECT_EQ(Page().lstRnd.ListIndex(), 1);
  EXPECT_EQ(Box(), "");
  EXPECT_EQ(NewLog(), "");
}

TEST_F(Panel, UpdateOfAKnownSettingChangesItsRangeInPlace) {
  PutRanges(Range("base_exp_rate", "1", "2") + Range("drop_rate", "3", "4"));
  Load();
  TypeRange("-50", "7");
  Update();
  EXPECT_EQ(Lines(Page().lstRnd), "base_exp_rate:-50 to 7\ndrop_rate:3 to 4\n");
  EXPECT_EQ(RangesFile(),
            Xml("Randomize", Range("base_exp_rate", "-50", "7") + Range("drop_rate", "3", "4")));
}

TEST_F(Panel, TheRangeComesBackWithItsSetting) {
  Load();
  TypeRange("100", "300");
  Update();
  ChooseSetting("drop_rate");
  EXPECT_EQ(Page().rIni.Text(), "250");
  ChooseSetting("base_exp_rate");
  EXPECT_EQ(Page().rIni.Text(), "100");
  EXPECT_EQ(Page().rEnd.Text(), "300");
  Load();
  EXPECT_EQ(Lines(Page().lstRnd), "base_exp_rate:100 to 300\n");
}

TEST_F(Panel, TheSetKeepsTheTextAndTheSettingTheNumber) {
  Load();
  TypeRange(" 007 ", "9.50");
  Update();
  EXPECT_EQ(Lines(Page().lstRnd), "base_exp_rate: 007  to 9.50\n");
  ChooseSetting("base_exp_rate");
  EXPECT_EQ(Page().rIni.Text(), "7");
  EXPECT_EQ(Page().rEnd.Text(), "9.5");
}

TEST_F(Panel, TheSettingGetsItsMaximumBeforeItsMinimum) {
  Load();
  TypeRange("100", "300");
  Update();
  const auto settings = life->randomizer.RandomizerDocument().Childs().Child("Battle_Athena");
  Parameters& bounds = settings->Fields().Field(0)->Parameters();
  ASSERT_EQ(bounds.Count(), 2);
  EXPECT_EQ(bounds.Parameter(0)->Name(), "Max");
  EXPECT_EQ(bounds.Parameter(0)->Value(), "300");
  EXPECT_EQ(bounds.Parameter(1)->Name(), "Min");
  EXPECT_EQ(bounds.Parameter(1)->Value(), "100");
}

TEST_F(Panel, TheFileIsWrittenLast) {
  PutRanges(Range("drop_rate", "3", "4"));
  Load();
  std::string shown;
  machine.recorder.beforeEach = [&] {
    if (!machine.recorder.Calls().back().starts_with("files.replace(")) return;
    shown += Lines(Page().lstRnd) + std::to_string(Page().lstRnd.ListIndex()) + "\n";
  };
  TypeRange("100", "300");
  Update();
  EXPECT_EQ(shown, "drop_rate:3 to 4\nbase_exp_rate:100 to 300\n1\n");
  shown.clear();
  ChooseRange("drop_rate:3 to 4");
  ChooseSetting("base_exp_rate");
  Page().lstRnd.SetListIndex(0);
  Remove();
  EXPECT_EQ(shown, "base_exp_rate:100 to 300\n0\n");
}

TEST_F(Panel, AReversedRangeIsStoredAsItIs) {
  Load();
  TypeRange("300", "100");
  Update();
  EXPECT_EQ(RangesFile(), Xml("Randomize", Range("base_exp_rate", "300", "100")));
}

TEST_F(Panel, WhatIsNoNumberIsRefused) {
  const std::string numbers[] = {"", "-", "abc", "1a", "1,5", "1 2", " "};
  for (const std::string& text : numbers) {
    Load();
    TypeRange(text, "5");
    Update();
    EXPECT_EQ(Box(), "Please, use numeric values!\n") << '"' << text << '"';
    TypeRange("5", text);
    Update();
    EXPECT_EQ(Box(), "Please, use numeric values!\n") << '"' << text << '"';
  }
  for (const auto& box : machine.boxes.Shown()) EXPECT_EQ(box.icon, BoxIcon::Exclamation);
  EXPECT_EQ(Lines(Page().lstRnd), "");
  EXPECT_FALSE(machine.files.Has(kRangesFile));
}

TEST_F(Panel, EqualBoundsAreRefused) {
  const std::string pairs[][2] = {{"5", "5"},      {"1.4", "1"},   {"2.5", "2"},   {"1.5", "2"},
                                  {"-0.5", "0.5"}, {"3.5", "4.5"}, {"1e2", "100"}, {"007", "7"}};
  for (const auto& [min, max] : pairs) {
    Load();
    TypeRange(min, max);
    Update();
    EXPECT_EQ(Box(), "Please, enter different values!\n") << min << " and " << max;
  }
  for (const auto& box : machine.boxes.Shown()) EXPECT_EQ(box.icon, BoxIcon::Exclamation);
  EXPECT_FALSE(machine.files.Has(kRangesFile));
}

TEST_F(Panel, BoundsThatRoundApartAreTaken) {
  const std::string pairs[][2] = {{"2.5", "3.5"}, {"0.5", "1"}, {"9e99", "1"}, {"-1e300", "1e300"}};
  for (const auto& [min, max] : pairs) {
    Load();
    TypeRange(min, max);
    Update();
    EXPECT_EQ(Box(), "") << min << " and " << max;
  }
}

TEST_F(Panel, UpdateWithoutASettingDoesNothing) {
  PutServerFile("");
  Load();
  TypeRange("abc", "5");
  machine.recorder.Forget();
  Update();
  EXPECT_EQ(Box(), "");
  EXPECT_EQ(machine.recorder.Calls(), std::vector<std::string>());
}

TEST_F(Panel, RemoveTakesTheSelectedRangeAwayAndWritesTheFile) {
  PutRanges(Range("base_exp_rate", "1", "2") + Range("drop_rate", "3", "4"));
  Load();
  ChooseRange("drop_rate:3 to 4");
  Remove();
  EXPECT_EQ(Lines(Page().lstRnd), "base_exp_rate:1 to 2\n");
  EXPECT_EQ(RangesFile(), Xml("Randomize", Range("base_exp_rate", "1", "2")));
}

TEST_F(Panel, TheListIsNeverEmptyOnTheScreenSoThatItKeepsItsPlace) {
  PutRanges(Range("base_exp_rate", "1", "2") + Range("drop_rate", "3", "4") + Range("x", "5", "6"));
  Load();
  const ListOnScreen screen(Page().lstRnd);
  TypeRange("5", "7");
  Update();
  EXPECT_EQ(screen.fewest, 3u);
  ChooseRange("drop_rate:3 to 4");
  Remove();
  EXPECT_EQ(screen.fewest, 2u);
  EXPECT_EQ(Page().lstRnd.ListIndex(), -1) << "what was selected is gone";
}

TEST_F(Panel, ARemovedSettingStillShowsItsOldBounds) {
  PutRanges(Range("base_exp_rate", "1", "2"));
  Load();
  ChooseRange("base_exp_rate:1 to 2");
  Remove();
  ChooseSetting("drop_rate");
  ChooseSetting("base_exp_rate");
  EXPECT_EQ(Page().rIni.Text(), "1");
  EXPECT_EQ(Page().rEnd.Text(), "2");
}

TEST_F(Panel, AnEmptiedSetIsARootWithoutContent) {
  PutRanges(Range("base_exp_rate", "1", "2"));
  Load();
  ChooseRange("base_exp_rate:1 to 2");
  Remove();
  EXPECT_EQ(RangesFile(), "<Randomize/>\r\n");
  Load();
  EXPECT_EQ(Lines(Page().lstRnd), "");
  TypeRange("5", "6");
  Update();
  EXPECT_EQ(RangesFile(), Xml("Randomize", Range("base_exp_rate", "5", "6")));
}

TEST_F(Panel, RemoveWithoutASelectionWritesNothing) {
  PutRanges(Range("base_exp_rate", "1", "2"));
  Load();
  machine.recorder.Forget();
  Remove();
  EXPECT_EQ(Lines(Page().lstRnd), "base_exp_rate:1 to 2\n");
  EXPECT_EQ(machine.recorder.Calls(), std::vector<std::string>());
}

TEST_F(Panel, RemoveMeansExactNames) {
  PutServerFile("rate: 1\r\n");
  PutRanges(Range("Rate", "1", "2") + Range("rate", "3", "4"));
  Load();
  ChooseRange("Rate:1 to 2");
  Remove();
  EXPECT_EQ(Lines(Page().lstRnd), "rate:3 to 4\n");
}

TEST_F(Panel, OfTwoRangesOfOneNameTheSelectedOneIsRemoved) {
  PutRanges(Range("rate", "1", "2") + Range("rate", "3", "4") + Range("rate", "5", "6"));
  Load();
  ChooseRange("rate:3 to 4");
  Remove();
  EXPECT_EQ(Lines(Page().lstRnd), "rate:1 to 2\nrate:5 to 6\n");
}

TEST_F(Panel, ARangeWhoseNameTheFileCannotHoldIsGoneAtTheNextStart) {
  const struct {
    const char* name;
    const char* nextTime;
  } cases[] = {{"?rate", "first:1 to 2\nlast:5 to 6\n"},
               {"!rate", "first:1 to 2\nlast:5 to 6\n"},
               {"a>b", "first:1 to 2\n"},
               {"a\nb", "first:1 to 2\nab:3 to 4\nlast:5 to 6\n"}};
  for (const auto& c : cases) {
    machine.files.Remove(kRangesFile);
    PutServerFile("first: 1\r\n" + std::string(c.name) + ": 3\r\nlast: 5\r\n");
    Load();
    for (int setting : {0, 1, 2}) {
      Page().cmdParam.Choose(setting);
      TypeRange(std::to_string(2 * setting + 1), std::to_string(2 * setting + 2));
      Update();
    }
    EXPECT_EQ(Lines(Page().lstRnd),
              "first:1 to 2\n" + std::string(c.name) + ":3 to 4\nlast:5 to 6\n");
    Load();
    EXPECT_EQ(Lines(Page().lstRnd), c.nextTime) << c.name;
  }
}

TEST_F(Panel, ARangeWhoseNameHoldsAColonIsCutAtIt) {
  PutRanges(Range("a:b", "1", "2"));
  Load();
  ChooseRange("a:b:1 to 2");
  Remove();
  EXPECT_EQ(Lines(Page().lstRnd), "a:b:1 to 2\n");
}

TEST_F(Panel, ARangeIsRemovedBehindOneThatIsCutToItsName) {
  PutRanges(Range("a:b", "1", "2") + Range("a", "3", "4") + Range("a", "5", "6"));
  Load();
  ChooseRange("a:3 to 4");
  Remove();
  EXPECT_EQ(Lines(Page().lstRnd), "a:b:1 to 2\na:5 to 6\n");
  ChooseRange("a:b:1 to 2");
  Remove();
  EXPECT_EQ(RangesFile(), Xml("Randomize", Range("a:b", "1", "2")));
}

TEST_F(Panel, AnUpdatedRangeHasItsBoundsInTheirOrderHoweverItWasWritten) {
  for (const char* written :
       {"\t<drop_rate Max=\"2\"/>\r\n", "\t<drop_rate Max=\"2\" Min=\"1\"/>\r\n",
        "\t<drop_rate min=\"1\" max=\"2\"/>\r\n", "\t<drop_rate/>\r\n"}) {
    PutRanges(written);
    Load();
    ChooseSetting("drop_rate");
    TypeRange("5", "6");
    Update();
    EXPECT_EQ(RangesFile(), Xml("Randomize", Range("drop_rate", "5", "6"))) << written;
  }
}

TEST_F(Panel, ChoosingARangeChoosesItsSetting) {
  PutRanges(Range("drop_rate", "3", "4") + Range("nowhere", "5", "6"));
  Load();
  ChooseRange("drop_rate:3 to 4");
  EXPECT_EQ(Page().cmdParam.Text(), "drop_rate");
  EXPECT_EQ(Page().rIni.Text(), "3");
  EXPECT_EQ(Page().rEnd.Text(), "4");
  ChooseRange("nowhere:5 to 6");
  EXPECT_EQ(Page().cmdParam.Text(), "drop_rate");
  EXPECT_EQ(Page().rIni.Text(), "3");
}

TEST_F(Panel, ChoosingTheRangeOfTheChosenSettingFillsTheBoxesAnew) {
  PutRanges(Range("base_exp_rate", "1", "2"));
  Load();
  TypeRange("50", "60");
  ChooseRange("base_exp_rate:1 to 2");
  EXPECT_EQ(Page().rIni.Text(), "1");
  EXPECT_EQ(Page().rEnd.Text(), "2");
}

TEST_F(Panel, ARangeThatIsSelectedByItsNameLeavesTheBoxes) {
  PutRanges(Range("base_exp_rate", "1", "2") + Range("drop_rate", "3", "4"));
  Load();
  TypeRange("50", "60");
  life->randomizer.ThePanel().SelectRandomizeListEntry("drop_rate");
  EXPECT_EQ(Page().lstRnd.Text(), "drop_rate:3 to 4");
  life->randomizer.ThePanel().SelectRandomizeListEntry("nowhere");
  EXPECT_EQ(Page().lstRnd.Text(), "drop_rate:3 to 4");
  EXPECT_EQ(Page().cmdParam.Text(), "base_exp_rate");
  EXPECT_EQ(Page().rIni.Text(), "50");
  life->randomizer.ThePanel().RefillRandomizeList();
  EXPECT_EQ(Page().lstRnd.ListIndex(), -1);
  EXPECT_EQ(Lines(Page().lstRnd), "base_exp_rate:1 to 2\ndrop_rate:3 to 4\n");
}

TEST_F(Panel, BeforeTheFilesAreLoadedAChosenSettingShowsNothing) {
  Begin();
  Page().cmdParam.AddItem("base_exp_rate");
  TypeRange("5", "6");
  Page().cmdParam.Choose(0);
  EXPECT_EQ(Page().rIni.Text(), "");
  EXPECT_EQ(Page().rEnd.Text(), "");
}

TEST_F(Panel, BeforeTheFilesAreLoadedUpdateKeepsTheRange) {
  Begin();
  Page().cmdParam.AddItem("base_exp_rate");
  Page().cmdParam.Choose(0);
  TypeRange("5", "6");
  Update();
  EXPECT_EQ(RangesFile(), Xml("Randomize", Range("base_exp_rate", "5", "6")));
}

TEST_F(Panel, SelectingAListEntryDoesNotReachTheSettings) {
  PutServerFile("rate: 1\r\nother: 3\r\nrate: 2\r\n");
  Load();
  Page().cmdParam.Choose(2);
  TypeRange("10", "20");
  Update();
  EXPECT_EQ(Page().lstRnd.ListIndex(), 0);
  EXPECT_EQ(Page().cmdParam.ListIndex(), 2);
}

TEST_F(Panel, AfterARemovalTheChosenSettingsRangeIsSelected) {
  PutRanges(Range("base_exp_rate", "1", "2") + Range("drop_rate", "3", "4"));
  Load();
  ChooseRange("drop_rate:3 to 4");
  ChooseSetting("base_exp_rate");
  EXPECT_EQ(Page().lstRnd.ListIndex(), 1);
  Remove();
  EXPECT_EQ(Page().lstRnd.ListIndex(), 0);
  Remove();
  EXPECT_EQ(Page().lstRnd.ListIndex(), -1);
}

TEST_F(Panel, ChoosingNeverChangesData) {
  PutRanges(Range("base_exp_rate", "1", "2"));
  Load();
  const std::string before = RangesFile();
  machine.recorder.Forget();
  ChooseSetting("drop_rate");
  ChooseRange("base_exp_rate:1 to 2");
  EXPECT_EQ(machine.recorder.Calls(), std::vector<std::string>());
  EXPECT_EQ(RangesFile(), before);
}

TEST_F(Panel, AFileThatCannotBeWrittenIsToldInTheEventLog) {
  PutRanges(Range("drop_rate", "3", "4"));
  machine.files.ProtectFromWriting(kRangesFile);
  Load();
  TypeRange("1", "2");
  Update();
  EXPECT_EQ(RangesFile(), Xml("Randomize", Range("drop_rate", "3", "4")));
  EXPECT_EQ(Lines(Page().lstRnd), "drop_rate:3 to 4\nbase_exp_rate:1 to 2\n");
  EXPECT_EQ(machine.eventLog.Entries().back(), "Error en funci\xF3n StringtoFile");
}

TEST_F(Panel, ASetThatCouldNotBeReadAtStartUpIsReadBeforeItIsChanged) {
  PutRanges(Range("drop_rate", "3", "4"));
  machine.files.LockForReading(kRangesFile);
  Load();
  TypeRange("1", "2");
  Update();
  EXPECT_EQ(NewLog(), "2 C:\\srv\\randomize.xml file can't be loaded\n");
  EXPECT_EQ(RangesFile(), Xml("Randomize", Range("drop_rate", "3", "4")));
  machine.files.Unlock(kRangesFile);
  Update();
  EXPECT_EQ(RangesFile(),
            Xml("Randomize", Range("drop_rate", "3", "4") + Range("base_exp_rate", "1", "2")));
  ChooseSetting("drop_rate");
  EXPECT_EQ(Page().rEnd.Text(), "4");
}

TEST_F(Panel, AFileWithoutRangesIsReplacedHoweverItIsWritten) {
  for (const char* text : {"", "\r\n", "<Randomize/>", "<Randomize />\n", "<Randomize></Randomize>",
                           "<?xml version=\"1.0\"?>\r\n<!-- a --><Randomize/>\r\n<!-- b -->\r\n"}) {
    machine.files.Put(kRangesFile, text);
    Load();
    ChooseSetting("drop_rate");
    TypeRange("5", "6");
    Update();
    EXPECT_EQ(RangesFile(), Xml("Randomize", Range("drop_rate", "5", "6"))) << text;
  }
}

TEST_F(Panel, ACutOffFileIsNeverWrittenOver) {
  const std::string whole =
      Xml("Randomize", Range("base_exp_rate", "1", "2") + Range("drop_rate", "3", "4"));
  for (std::size_t length = whole.find("<Randomize>"); length < whole.size() - 2; ++length) {
    const std::string cut = whole.substr(0, length);
    machine.files.Put(kRangesFile, cut);
    Load();
    ChooseSetting("drop_rate");
    TypeRange("7", "8");
    Update();
    const bool anyEntry = cut.find("Max") != std::string::npos;
    EXPECT_TRUE(RangesFile() == cut || !anyEntry) << length;
    EXPECT_EQ(RangesFile() == cut, NewLog() != "") << length;
  }
}

// A file with a fault was taken for read: the next press wrote it without the ranges behind it.
TEST_F(Panel, AFileWithAFaultIsShownUpToItAndLeftAlone) {
  const std::string faulty =
      Xml("Randomize", Range("base_exp_rate", "1", "2") + "\t<job_exp_rate to Max=\"4\"/>\r\n" +
                           Range("drop_rate", "5", "6"));
  machine.files.Put(kRangesFile, faulty);
  Load();
  EXPECT_EQ(Page().lstRnd.Items().front(), "base_exp_rate:1 to 2");
  EXPECT_EQ(Page().rEnd.Text(), "2");
  EXPECT_EQ(NewLog(), "");
  TypeRange("7", "8");
  Update();
  EXPECT_EQ(NewLog(), "2 C:\\srv\\randomize.xml file can't be loaded\n");
  ChooseRange("base_exp_rate:1 to 2");
  Remove();
  EXPECT_EQ(NewLog(), "2 C:\\srv\\randomize.xml file can't be loaded\n");
  EXPECT_EQ(RangesFile(), faulty);
}

TEST_F(Panel, AFaultThatWasMendedByHandLetsTheNextUpdateThrough) {
  machine.files.Put(kRangesFile, Xml("Randomize", Range("base_exp_rate", "1", "2") +
                                                      "\t<drop_rate to Max=\"4\"/>\r\n"));
  Load();
  PutRanges(Range("base_exp_rate", "1", "20") + Range("drop_rate", "5", "6"));
  ChooseSetting("job_exp_rate");
  TypeRange("7", "8");
  Update();
  EXPECT_EQ(NewLog(), "");
  EXPECT_EQ(RangesFile(),
            Xml("Randomize", Range("base_exp_rate", "1", "20") + Range("drop_rate", "5", "6") +
                                 Range("job_exp_rate", "7", "8")));
  ChooseSetting("base_exp_rate");
  EXPECT_EQ(Page().rEnd.Text(), "20");
}

// Each press loaded a refused set again and took whatever came: the engine drew an empty set while
// the list still showed the old one.
TEST_F(Panel, ASetThatIsRefusedAgainStaysAsItIsShown) {
  const std::string faulty =
      "<Randomize>" + Range("base_exp_rate", "1", "2") + Range("job", "3", "4") + "<";
  machine.files.Put(kRangesFile, faulty);
  Load();
  const std::string shown = Lines(Page().lstRnd);
  EXPECT_EQ(shown, "base_exp_rate:1 to 2\njob:3 to 4\n");
  for (const char* text : {"", "<Randomize>", "words", "<Randomize><other Min=\"1\" Max=\"2\"/>"}) {
    machine.files.LockForReading(kRangesFile);
    if (*text) machine.files.Unlock(kRangesFile);
    if (*text) machine.files.Put(kRangesFile, text);
    TypeRange("7", "8");
    Update();
    EXPECT_EQ(NewLog(), "2 C:\\srv\\randomize.xml file can't be loaded\n");
    EXPECT_EQ(Lines(Page().lstRnd), shown);
    Page().Command2.Click();
    EXPECT_TRUE(NewLog().ends_with("3 Randomize was succesfull, 2 change(s)\n")) << text;
  }
}

TEST_F(Panel, ARefusedFileThatWasDeletedIsWrittenWithAllThatIsShown) {
  machine.files.Put(kRangesFile, "<Randomize>" + Range("base_exp_rate", "1", "2") + "<dr");
  Load();
  machine.files.Remove(kRangesFile);
  ChooseSetting("drop_rate");
  TypeRange("7", "8");
  Update();
  EXPECT_EQ(NewLog(), "");
  EXPECT_EQ(RangesFile(),
            Xml("Randomize", Range("base_exp_rate", "1", "2") + Range("drop_rate", "7", "8")));
}

// A remark behind the root made the file count as cut off: no press wrote it any more.
TEST_F(Panel, AWholeFileIsWrittenWhateverFollowsItsRoot) {
  for (const char* tail :
       {"<!-- my ranges -->", "\r\n  \r\n", "x", "\x1A", "<", "<!-- cut", "<x>"}) {
    machine.files.Put(kRangesFile, Xml("Randomize", Range("base_exp_rate", "1", "2")) + tail);
    Load();
    ChooseSetting("drop_rate");
    TypeRange("7", "8");
    Update();
    EXPECT_EQ(NewLog(), "") << tail;
    EXPECT_EQ(RangesFile(),
              Xml("Randomize", Range("base_exp_rate", "1", "2") + Range("drop_rate", "7", "8")))
        << tail;
  }
}

TEST_F(Panel, TheCalendarTimerRunsExactlyInProgramMode) {
  Load();
  const bool expected[] = {false, false, true};
  for (std::size_t mode : {2u, 0u, 2u, 1u, 2u, 2u}) {
    Page().opt_Rnd[mode].Click();
    EXPECT_EQ(life->calendarTimer.Enabled(), expected[mode]) << mode;
  }
  Begin();
  Page().opt_Rnd[2].Select();
  EXPECT_TRUE(life->calendarTimer.Enabled());
}

TEST_F(Panel, RandomizeNowRunsWhateverTheModeAndCountsNothing) {
  PutRanges(Range("base_exp_rate", "5", "9"));
  Load();
  for (std::size_t mode = 0; mode < 3; ++mode) {
    Page().opt_Rnd[mode].Click();
    Page().Command2.Click();
    EXPECT_NE(NewLog().find("3 Randomize was succesfull, 1 change(s)"), std::string::npos);
  }
  EXPECT_EQ(machine.Setting("HourRndCnt"), "(none)");
  EXPECT_EQ(life->randomizer.TheGate().Counters().HourRndCnt, 0);
}

}  // namespace
}  // namespace tarvo
