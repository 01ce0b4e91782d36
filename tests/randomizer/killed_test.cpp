#include "tests/randomizer/randomizer_story.h"

namespace tarvo {
namespace {

/// The launcher is killed between any two of its calls to the machine: each of the three files is
/// the old one or the new one, never a part of one, and the next launcher goes on.
class Killed : public RandomizerStory {
 protected:
  struct Files {
    std::string server;
    std::string ranges;
    std::string calendar;
    bool operator==(const Files&) const = default;
  };
  Files Present() { return {ServerFile(), RangesFile(), CalendarFile()}; }
  void PutOld() {
    machine.files.Put(kServerFile, "base_exp_rate: 100\r\njob_exp_rate: 100\r\n");
    PutRanges(Range("base_exp_rate", "5", "9"));
    PutCalendar(Entry("Mon_08:30", "Yes"));
  }

  template <class Act>
  void AtEveryCall(Act act) {
    PutOld();
    const Files old = Present();
    Load();
    machine.recorder.Forget();
    act();
    const Files changed = Present();
    const std::size_t calls = machine.recorder.Calls().size();
    ASSERT_GT(calls, 1u);
    EXPECT_FALSE(changed == old);
    for (std::size_t n = 1; n <= calls; ++n) {
      PutOld();
      Load();
      machine.recorder.KillAtCall(n);
      EXPECT_THROW(act(), LauncherKilled);
      const Files left = Present();
      EXPECT_TRUE(left.server == old.server || left.server == changed.server) << n;
      EXPECT_TRUE(left.ranges == old.ranges || left.ranges == changed.ranges) << n;
      EXPECT_TRUE(left.calendar == old.calendar || left.calendar == changed.calendar) << n;
      Load();
      EXPECT_EQ(Page().cmdParam.Items().size(), 2u);
      EXPECT_FALSE(Page().lstDTRands.Items().empty());
    }
  }
};

TEST_F(Killed, DuringARun) {
  AtEveryCall([this] { Page().Command2.Click(); });
}

TEST_F(Killed, DuringAMapStart) {
  AtEveryCall([this] {
    Page().opt_Rnd[0].Click();
    life->randomizer.TheGate().SetCounters({machine.clock.Now(), 0, 0});
    life->randomizer.TheGate().RandomizeOnMapStart();
  });
}

TEST_F(Killed, DuringAnUpdate) {
  AtEveryCall([this] {
    ChooseSetting("job_exp_rate");
    TypeRange("1", "2");
    Page().rAdd[0].Click();
  });
}

TEST_F(Killed, DuringARemoval) {
  AtEveryCall([this] {
    ChooseRange("base_exp_rate:5 to 9");
    Page().rAdd[1].Click();
  });
}

TEST_F(Killed, DuringAnAdditionToTheCalendar) {
  AtEveryCall([this] {
    Page().lstDay.Choose(3);
    Page().cmdCalendar[0].Click();
  });
}

TEST_F(Killed, DuringACalendarRun) {
  SetClock(1, 8, 30);
  AtEveryCall([this] {
    machine.registry.Erase(Hive::LocalMachine, machine.SettingsKey(), "LastRandProcess");
    life->randomizer.TheCalendar().Tick();
  });
}

}  // namespace
}  // namespace tarvo
