#include "tests/randomizer/panel_story.h"

namespace tarvo {
namespace {

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

TEST_F(Panel, UpdateMeansExactNames) {
  PutServerFile("rate: 1\r\n");
  PutRanges(Range("Rate", "1", "2"));
  Load();
  TypeRange("5", "6");
  Update();
  EXPECT_EQ(Lines(Page().lstRnd), "Rate:1 to 2\nrate:5 to 6\n");
  EXPECT_EQ(RangesFile(), Xml("Randomize", Range("Rate", "1", "2") + Range("rate", "5", "6")));
}

TEST_F(Panel, OfTwoRangesOfOneNameTheLastIsMeantAndTheFirstIsSelected) {
  PutServerFile("rate: 1\r\n");
  PutRanges(Range("rate", "1", "2") + Range("rate", "3", "4"));
  Load();
  EXPECT_EQ(Page().rIni.Text(), "3");
  EXPECT_EQ(Page().rEnd.Text(), "4");
  TypeRange("5", "6");
  Update();
  EXPECT_EQ(Lines(Page().lstRnd), "rate:1 to 2\nrate:5 to 6\n");
  EXPECT_EQ(Page().lstRnd.ListIndex(), 0);
}

TEST_F(Panel, OfTwoSettingsOfOneNameAClickedRangeChoosesTheFirst) {
  PutServerFile("rate: 1\r\nother: 2\r\nrate: 3\r\n");
  PutRanges(Range("rate", "5", "6"));
  Load();
  ChooseSetting("other");
  ChooseRange("rate:5 to 6");
  EXPECT_EQ(Page().cmdParam.ListIndex(), 0);
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

TEST_F(Panel, ASettingThatIsNoLongerSelectedLeavesTheBoxes) {
  Load();
  TypeRange("50", "60");
  Page().cmdParam.SetListIndex(-1);
  EXPECT_EQ(Page().rIni.Text(), "50");
  EXPECT_EQ(Page().rEnd.Text(), "60");
}

TEST_F(Panel, ASettingWithoutANameIsGivenARangeLikeOthers) {
  PutServerFile("rate: 1\r\n:5\r\n");
  Load();
  Page().cmdParam.Choose(1);
  EXPECT_EQ(Page().rIni.Text(), "5");
  TypeRange("6", "7");
  Update();
  EXPECT_EQ(Lines(Page().lstRnd), ":6 to 7\n");
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
