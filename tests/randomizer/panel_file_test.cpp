#include "tests/randomizer/panel_story.h"

namespace tarvo {
namespace {

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

TEST_F(Panel, OfAHandEditedRangeTheNumbersChangeAndNothingElse) {
  const std::pair<const char*, const char*> cases[] = {
      {" Min=\"1\" Max=\"2\" note=\"x\"", " Min=\"5\" Max=\"6\" note=\"x\""},
      {" Min=\"1\" note=\"x\" Max=\"2\"", " Min=\"5\" note=\"x\" Max=\"6\""},
      {" Max=\"2\" Min=\"1\"", " Max=\"6\" Min=\"5\""},
      {" min=\"1\" MAX=\"2\"", " min=\"5\" MAX=\"6\""},
      {" Max=\"2\" Min=\"1\" Max=\"3\"", " Max=\"2\" Min=\"5\" Max=\"6\""},
      {" Min=\"1\" note=\"x\"", " Min=\"5\" note=\"x\" Max=\"6\""},
      {" Max=\"2\"", " Max=\"6\" Min=\"5\""},
      {"", " Min=\"5\" Max=\"6\""},
  };
  for (const auto& [written, kept] : cases) {
    PutRanges(std::string("\t<drop_rate") + written + "/>\r\n");
    Load();
    ChooseSetting("drop_rate");
    TypeRange("5", "6");
    Update();
    EXPECT_EQ(RangesFile(), Xml("Randomize", std::string("\t<drop_rate") + kept + "/>\r\n"))
        << written;
  }
}

TEST_F(Panel, WhatElseAHandWroteIntoTheFileStays) {
  const auto file = [](const std::string& bounds) {
    return "<?xml version=\"1.1\" encoding=\"windows-1252\" application=\"Tarvo Launcher\"?>\r\n"
           "<Randomize note=\"mine\">\r\n\t<drop_rate " +
           bounds + "/>\r\n\t<group>\r\n\t\t<x>1</x>\r\n\t</group>\r\n</Randomize>\r\n";
  };
  machine.files.Put(kRangesFile, file("Min=\"1\" Max=\"2\""));
  Load();
  ChooseSetting("drop_rate");
  TypeRange("5", "6");
  Update();
  EXPECT_EQ(RangesFile(), file("Min=\"5\" Max=\"6\""));
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

TEST_F(Panel, ARefusedSetIsReadAgainForAChangeAlone) {
  machine.files.Put(kRangesFile, "<Randomize>\r\n" + Range("drop_rate", "1", "2"));
  Load();
  TypeRange("abc", "5");
  machine.recorder.Forget();
  Update();
  EXPECT_EQ(Box(), "Please, use numeric values!\n");
  Remove();
  EXPECT_EQ(machine.recorder.CountOf("files."), 0u);
  EXPECT_EQ(NewLog(), "");
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

}  // namespace
}  // namespace tarvo
