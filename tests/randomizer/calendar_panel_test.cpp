#include "tests/randomizer/randomizer_story.h"

namespace tarvo {
namespace {

class CalendarPanel : public RandomizerStory {
 protected:
  void Choose(int day, int hour, int minute, int restart) {
    Page().lstDay.Choose(day);
    Page().ScrollTime[0].Scroll(hour);
    Page().ScrollTime[1].Scroll(minute);
    Page().cmbRstrt.Choose(restart);
  }
  void Add() { Page().cmdCalendar[0].Click(); }
  void Remove() { Page().cmdCalendar[1].Click(); }
  void Select(const std::string& line) {
    Page().lstDTRands.Choose(Position(Page().lstDTRands, line));
  }
};

TEST_F(CalendarPanel, AddsAnEntryAtTheEndAndWritesTheFile) {
  Load();
  Choose(0, 8, 30, 0);
  Add();
  Choose(4, 22, 0, 1);
  Add();
  EXPECT_EQ(Lines(Page().lstDTRands), "Mon 08:30 restart=Y\nFri 22:00 restart=N\n");
  EXPECT_EQ(CalendarFile(), Xml("Calendar", Entry("Mon_08:30", "Yes") + Entry("Fri_22:00", "No")));
  Load();
  EXPECT_EQ(Lines(Page().lstDTRands), "Mon 08:30 restart=Y\nFri 22:00 restart=N\n");
}

TEST_F(CalendarPanel, AddingAnEntryTwiceLeavesOneAndWritesBothTimes) {
  Load();
  Choose(0, 8, 30, 0);
  Add();
  const std::string before = CalendarFile();
  machine.recorder.Forget();
  Page().cmbRstrt.Choose(1);
  Add();
  EXPECT_EQ(Lines(Page().lstDTRands), "Mon 08:30 restart=Y\n");
  EXPECT_EQ(CalendarFile(), before);
  EXPECT_EQ(machine.recorder.CountOf("files.swap(C:\\srv\\rndcalendar.xml)"), 1u);
  EXPECT_EQ(NewLog(), "");
}

TEST_F(CalendarPanel, AddingMeansExactNames) {
  PutCalendar(Entry("mon_08:30", "Yes"));
  Load();
  Choose(0, 8, 30, 1);
  Add();
  EXPECT_EQ(CalendarFile(), Xml("Calendar", Entry("mon_08:30", "Yes") + Entry("Mon_08:30", "No")));
}

TEST_F(CalendarPanel, WithoutADayATypedTimeStaysAsItIs) {
  Load();
  Page().txt_Time[0].Type("7");
  Add();
  EXPECT_EQ(Page().txt_Time[0].Text(), "7");
}

TEST_F(CalendarPanel, WithoutADayTheFileIsWrittenAllTheSame) {
  PutCalendar(Entry("Mon_08:30", "Yes"));
  Load();
  machine.recorder.Forget();
  Add();
  EXPECT_EQ(Lines(Page().lstDTRands), "Mon 08:30 restart=Y\n");
  EXPECT_EQ(CalendarFile(), Xml("Calendar", Entry("Mon_08:30", "Yes")));
  EXPECT_EQ(machine.recorder.CountOf("files.swap"), 1u);
}

TEST_F(CalendarPanel, WithoutARestartChoiceTheEntryDoesNotRestart) {
  Load();
  Page().lstDay.Choose(6);
  Add();
  EXPECT_EQ(Lines(Page().lstDTRands), "Sun 00:00 restart=N\n");
}

TEST_F(CalendarPanel, EveryDayAndTimeOfTheWeekIsNamedWithTwoDigits) {
  Load();
  const char* days[] = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};
  for (int day = 0; day < 7; ++day) {
    Choose(day, 0, 9, 1);
    Add();
    EXPECT_EQ(Page().lstDTRands.Items().back(), std::string(days[day]) + " 00:09 restart=N");
    Choose(day, 23, 59, 1);
    Add();
    EXPECT_EQ(Page().lstDTRands.Items().back(), std::string(days[day]) + " 23:59 restart=N");
  }
}

TEST_F(CalendarPanel, RemovesTheSelectedEntryAndWritesTheFile) {
  PutCalendar(Entry("Mon_08:30", "Yes") + Entry("Fri_22:00", "No"));
  Load();
  Select("Mon 08:30 restart=Y");
  Remove();
  EXPECT_EQ(Lines(Page().lstDTRands), "Fri 22:00 restart=N\n");
  EXPECT_EQ(Page().lstDTRands.ListIndex(), -1);
  EXPECT_EQ(CalendarFile(), Xml("Calendar", Entry("Fri_22:00", "No")));
  Select("Fri 22:00 restart=N");
  Remove();
  EXPECT_EQ(CalendarFile(), "<Calendar/>\r\n");
  Load();
  EXPECT_EQ(Lines(Page().lstDTRands), "");
}

TEST_F(CalendarPanel, RemoveWithoutASelectionWritesTheFileAllTheSame) {
  Load();
  EXPECT_FALSE(machine.files.Has(kCalendarFile));
  Remove();
  EXPECT_EQ(CalendarFile(), "<Calendar/>\r\n");
}

TEST_F(CalendarPanel, OfTwoEqualEntriesTheSelectedOneIsRemoved) {
  PutCalendar(Entry("Mon_08:30", "Yes") + Entry("Mon_08:30", "No"));
  Load();
  Select("Mon 08:30 restart=N");
  Remove();
  EXPECT_EQ(Lines(Page().lstDTRands), "Mon 08:30 restart=Y\n");
  EXPECT_EQ(CalendarFile(), Xml("Calendar", Entry("Mon_08:30", "Yes")));
}

TEST_F(CalendarPanel, ALineOfAnotherFormLeavesTheListAndStaysInTheFile) {
  PutCalendar(Entry("a_b_c", "Yes") + Entry("Mon_08:30", "No"));
  Load();
  Select("a b c restart=Y");
  Remove();
  EXPECT_EQ(Lines(Page().lstDTRands), "Mon 08:30 restart=N\n");
  EXPECT_EQ(CalendarFile(), Xml("Calendar", Entry("a_b_c", "Yes") + Entry("Mon_08:30", "No")));
}

TEST_F(CalendarPanel, ScrollsShowTwoDigits) {
  Load();
  for (const auto& [value, text] :
       {std::pair{7, "07"}, {0, "00"}, {9, "09"}, {10, "10"}, {23, "23"}}) {
    for (std::size_t i : {0u, 1u}) {
      Page().ScrollTime[i].Scroll(value);
      EXPECT_EQ(Page().txt_Time[i].Text(), text);
    }
  }
  Page().ScrollTime[0].Scroll(99);
  Page().ScrollTime[1].Scroll(-1);
  EXPECT_EQ(Page().txt_Time[0].Text(), "23");
  EXPECT_EQ(Page().txt_Time[1].Text(), "00");
}

TEST_F(CalendarPanel, TypedTimesComeOutWithinADay) {
  const struct {
    const char* typed;
    const char* hour;
    const char* minute;
  } cases[] = {{"7", "07", "07"},  {"23", "23", "23"}, {"24", "23", "24"}, {"59", "23", "59"},
               {"60", "23", "59"}, {"99", "23", "59"}, {"", "05", "05"},   {"x", "05", "05"},
               {"-1", "00", "00"}, {"0", "00", "00"},  {"1e9", "23", "59"}};
  for (const auto& c : cases) {
    Load();
    for (std::size_t i : {0u, 1u}) {
      Page().ScrollTime[i].Scroll(5);
      Page().txt_Time[i].Type(c.typed);
      Page().txt_Time[i].LoseFocus();
    }
    EXPECT_EQ(Page().txt_Time[0].Text(), c.hour) << c.typed;
    EXPECT_EQ(Page().txt_Time[1].Text(), c.minute) << c.typed;
    EXPECT_EQ(std::to_string(Page().ScrollTime[1].Value()), std::to_string(std::stoi(c.minute)));
  }
}

TEST_F(CalendarPanel, AnEntryIsAddedWithTheTypedTimePutRight) {
  Load();
  Page().lstDay.Choose(1);
  Page().txt_Time[0].Type("99");
  Page().txt_Time[1].Type("7");
  Add();
  EXPECT_EQ(Lines(Page().lstDTRands), "Tue 23:07 restart=N\n");
}

TEST_F(CalendarPanel, TimeBoxesTakeDigits) {
  Load();
  TextBox& box = Page().txt_Time[0];
  box.Type("");
  for (char key : std::string("1:a-2.3")) box.PressKey(key);
  EXPECT_EQ(box.Text(), "12");
  for (const TextBox& each : Page().txt_Time) {
    EXPECT_EQ(each.MaxLength(), 2u);
    for (int key = 0; key < 256; ++key) {
      const bool taken = key == 8 || (key >= '0' && key <= '9');
      EXPECT_EQ(each.LetsThrough(static_cast<char>(key)), taken) << key;
    }
  }
}

TEST_F(CalendarPanel, AnEntryOnTheDiskSurvivesAStartWithoutTheServerFile) {
  PutCalendar(Entry("Mon_08:30", "Yes"));
  machine.files.Remove(kServerFile);
  Load();
  EXPECT_EQ(Lines(Page().lstDTRands), "");
  Choose(4, 22, 0, 1);
  Add();
  EXPECT_EQ(Lines(Page().lstDTRands), "Mon 08:30 restart=Y\nFri 22:00 restart=N\n");
  EXPECT_EQ(CalendarFile(), Xml("Calendar", Entry("Mon_08:30", "Yes") + Entry("Fri_22:00", "No")));
}

TEST_F(CalendarPanel, ARemovalReadsTheFileFirstToo) {
  PutCalendar(Entry("Mon_08:30", "Yes"));
  machine.files.Remove(kServerFile);
  Load();
  Remove();
  EXPECT_EQ(Lines(Page().lstDTRands), "Mon 08:30 restart=Y\n");
  EXPECT_EQ(CalendarFile(), Xml("Calendar", Entry("Mon_08:30", "Yes")));
}

TEST_F(CalendarPanel, AFileThatCannotBeReadIsLeftAlone) {
  PutCalendar(Entry("Mon_08:30", "Yes"));
  machine.files.LockForReading(kCalendarFile);
  Load();
  Choose(4, 22, 0, 1);
  Add();
  EXPECT_EQ(NewLog(), "2 C:\\srv\\rndcalendar.xml file can't be loaded\n");
  EXPECT_EQ(Lines(Page().lstDTRands), "");
  EXPECT_EQ(CalendarFile(), Xml("Calendar", Entry("Mon_08:30", "Yes")));
  machine.files.Unlock(kCalendarFile);
  Add();
  EXPECT_EQ(Lines(Page().lstDTRands), "Mon 08:30 restart=Y\nFri 22:00 restart=N\n");
}

TEST_F(CalendarPanel, AFileWithAFaultIsShownUpToItAndLeftAlone) {
  const std::string faulty =
      Xml("Calendar", Entry("Mon_08:30", "Yes") + "\t<Tue_08:30 to Restart=\"Yes\"/>\r\n" +
                          Entry("Wed_08:30", "Yes"));
  machine.files.Put(kCalendarFile, faulty);
  Load();
  const std::string shown = Lines(Page().lstDTRands);
  EXPECT_TRUE(shown.starts_with("Mon 08:30 restart=Y\n")) << shown;
  Choose(4, 22, 0, 1);
  Add();
  Select("Mon 08:30 restart=Y");
  Remove();
  EXPECT_EQ(NewLog(),
            "2 C:\\srv\\rndcalendar.xml file can't be loaded\n"
            "2 C:\\srv\\rndcalendar.xml file can't be loaded\n");
  EXPECT_EQ(Lines(Page().lstDTRands), shown);
  EXPECT_EQ(CalendarFile(), faulty);
}

TEST_F(CalendarPanel, AFileThatWasMendedByHandLetsTheRemovalThrough) {
  machine.files.Put(kCalendarFile, Xml("Calendar", Entry("Mon_08:30", "Yes") +
                                                       "\t<Tue_08:30 to Restart=\"Yes\"/>\r\n"));
  Load();
  PutCalendar(Entry("Sun_01:00", "No") + Entry("Mon_08:30", "Yes"));
  Select("Mon 08:30 restart=Y");
  Remove();
  EXPECT_EQ(Lines(Page().lstDTRands), "Sun 01:00 restart=N\n");
  EXPECT_EQ(CalendarFile(), Xml("Calendar", Entry("Sun_01:00", "No")));
}

TEST_F(CalendarPanel, AnEntryIsRemovedBehindOneThatIsCutToItsName) {
  PutCalendar(Entry("Mon_08:30_x", "Yes") + Entry("Mon_08:30", "No"));
  Load();
  Page().lstDTRands.Choose(1);
  Remove();
  EXPECT_EQ(CalendarFile(), Xml("Calendar", Entry("Mon_08:30_x", "Yes")));
}

TEST_F(CalendarPanel, ACutOffFileIsNeverWrittenOver) {
  const std::string whole = Xml("Calendar", Entry("Mon_08:30", "Yes") + Entry("Tue_09:00", "No"));
  for (std::size_t length = whole.find("<Mon") + 1; length < whole.size() - 2; ++length) {
    const std::string cut = whole.substr(0, length);
    machine.files.Put(kCalendarFile, cut);
    Load();
    Choose(4, 22, 0, 1);
    Add();
    EXPECT_EQ(CalendarFile(), cut);
  }
}

TEST_F(CalendarPanel, ASetThatIsRefusedAgainStaysAsItIsShown) {
  machine.files.Put(kCalendarFile, "<Calendar>" + Entry("Mon_08:30", "Yes") + "<Tu");
  Load();
  Choose(4, 22, 0, 1);
  for (const char* text : {"", "<Calendar>", "words", "<Calendar><Tue_09:00 Restart=\"No\"/>"}) {
    machine.files.LockForReading(kCalendarFile);
    if (*text) machine.files.Unlock(kCalendarFile);
    if (*text) machine.files.Put(kCalendarFile, text);
    Select("Mon 08:30 restart=Y");
    Add();
    EXPECT_EQ(NewLog(), "2 C:\\srv\\rndcalendar.xml file can't be loaded\n");
    EXPECT_EQ(Lines(Page().lstDTRands), "Mon 08:30 restart=Y\n") << text;
    EXPECT_EQ(Page().lstDTRands.ListIndex(), 0);
  }
}

TEST_F(CalendarPanel, ARefusedFileThatWasDeletedIsWrittenWithAllThatIsShown) {
  machine.files.Put(kCalendarFile, "<Calendar>" + Entry("Mon_08:30", "Yes") + "<Tu");
  Load();
  machine.files.Remove(kCalendarFile);
  Choose(4, 22, 0, 1);
  Add();
  EXPECT_EQ(NewLog(), "");
  EXPECT_EQ(Lines(Page().lstDTRands), "Mon 08:30 restart=Y\nFri 22:00 restart=N\n");
  EXPECT_EQ(CalendarFile(), Xml("Calendar", Entry("Mon_08:30", "Yes") + Entry("Fri_22:00", "No")));
}

TEST_F(CalendarPanel, AWholeFileIsWrittenWhateverFollowsItsRoot) {
  for (const char* tail : {"<!-- mine -->", "\r\n  \r\n", "x", "\x1A", "<", "<!-- cut", "<x>"}) {
    machine.files.Put(kCalendarFile, Xml("Calendar", Entry("Mon_08:30", "Yes")) + tail);
    Load();
    Choose(4, 22, 0, 1);
    Add();
    EXPECT_EQ(NewLog(), "") << tail;
    EXPECT_EQ(CalendarFile(), Xml("Calendar", Entry("Mon_08:30", "Yes") + Entry("Fri_22:00", "No")))
        << tail;
  }
}

TEST_F(CalendarPanel, AFileThatCannotBeWrittenIsToldInTheEventLog) {
  PutCalendar(Entry("Mon_08:30", "Yes"));
  machine.files.ProtectFromWriting(kCalendarFile);
  Load();
  Choose(4, 22, 0, 1);
  Add();
  EXPECT_EQ(CalendarFile(), Xml("Calendar", Entry("Mon_08:30", "Yes")));
  EXPECT_EQ(machine.eventLog.Entries().back(), "Error en funci\xF3n StringtoFile");
}

}  // namespace
}  // namespace tarvo
