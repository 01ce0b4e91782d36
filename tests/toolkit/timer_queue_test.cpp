#include "toolkit/timer_queue.h"

#include <gtest/gtest.h>

#include <string>

namespace tarvo {
namespace {

class HandMovedClock : public TickClock {
 public:
  std::uint32_t Milliseconds() override { return now; }
  void Pause(std::uint32_t milliseconds) override { now += milliseconds; }
  std::uint32_t now = 1000;
};

/// Timers that note their names when they tick.
class TimerQueueTest : public testing::Test {
 protected:
  void Note(Timer& timer) {
    timer.onTick = [this, &timer] { ticked += timer.Name() + " "; };
  }

  /// Lets time pass at once, then runs all that fell due meanwhile.
  std::string After(std::uint32_t milliseconds) {
    ticked.clear();
    clock.Pause(milliseconds);
    while (queue.RunNext([](const std::function<void()>& tick) { tick(); })) {
    }
    return ticked;
  }

  HandMovedClock clock;
  TimerQueue queue{clock};
  std::string ticked;
};

TEST_F(TimerQueueTest, TicksEachTimeTheIntervalHasPassed) {
  Timer timer(queue, "a", 100, true);
  Note(timer);
  EXPECT_EQ(After(99), "");
  EXPECT_EQ(After(1), "a ");
  EXPECT_EQ(After(99), "");
  EXPECT_EQ(After(1), "a ");
}

TEST_F(TimerQueueTest, ADisabledTimerDoesNotTick) {
  Timer timer(queue, "a", 100);
  Note(timer);
  EXPECT_EQ(queue.UntilNext(), std::nullopt);
  EXPECT_EQ(After(1000), "");
  timer.SetEnabled(true);
  EXPECT_EQ(queue.UntilNext(), 100U);
  timer.SetEnabled(false);
  EXPECT_EQ(After(1000), "");
}

TEST_F(TimerQueueTest, TimersDueAtTheSameMomentTickInTheOrderOfArming) {
  Timer first(queue, "first", 200);
  Timer second(queue, "second", 200);
  Timer third(queue, "third", 100);
  for (Timer* timer : {&first, &second, &third}) Note(*timer);
  second.SetEnabled(true);
  first.SetEnabled(true);
  clock.Pause(100);
  third.SetEnabled(true);
  EXPECT_EQ(After(100), "second first third ");
}

TEST_F(TimerQueueTest, MissedTicksAreNotMadeUp) {
  Timer timer(queue, "a", 100, true);
  Note(timer);
  EXPECT_EQ(After(1050), "a ");
  EXPECT_EQ(After(99), "") << "the interval counts from the late tick";
  EXPECT_EQ(After(1), "a ");
}

TEST_F(TimerQueueTest, TheWrapOfTheTickCountIsNotNoticed) {
  clock.now = 0xFFFFFFF0U;
  Timer timer(queue, "a", 100, true);
  Note(timer);
  EXPECT_EQ(After(50), "");
  EXPECT_EQ(queue.UntilNext(), 50U);
  EXPECT_EQ(After(50), "a ");
  EXPECT_EQ(clock.now, 0xFFFFFFF0U + 100U);
  EXPECT_EQ(After(100), "a ");
}

TEST_F(TimerQueueTest, ATimerMayBeDisabledInItsOwnTick) {
  Timer timer(queue, "a", 100, true);
  timer.onTick = [&] {
    ticked += "a ";
    timer.SetEnabled(false);
  };
  EXPECT_EQ(After(100), "a ");
  EXPECT_EQ(After(1000), "");
  EXPECT_EQ(queue.UntilNext(), std::nullopt);
}

TEST_F(TimerQueueTest, ATimerMayDisableAnotherThatIsDueToo) {
  Timer one(queue, "one", 100, true);
  Timer other(queue, "other", 100, true);
  one.onTick = [&] {
    ticked += "one ";
    other.SetEnabled(false);
  };
  Note(other);
  EXPECT_EQ(After(100), "one ");
}

TEST_F(TimerQueueTest, EnablingAgainStartsTheIntervalAfreshAndSettingWhatIsSetDoesNot) {
  Timer timer(queue, "a", 100, true);
  Note(timer);
  clock.Pause(60);
  timer.SetEnabled(true);
  timer.SetInterval(100);
  EXPECT_EQ(queue.UntilNext(), 40U);
  timer.SetEnabled(false);
  timer.SetEnabled(true);
  EXPECT_EQ(queue.UntilNext(), 100U);
}

TEST_F(TimerQueueTest, AnotherIntervalStartsAfresh) {
  Timer timer(queue, "a", 100, true);
  Note(timer);
  clock.Pause(60);
  timer.SetInterval(200);
  EXPECT_EQ(queue.UntilNext(), 200U);
  EXPECT_EQ(After(199), "");
  EXPECT_EQ(After(1), "a ");
}

TEST_F(TimerQueueTest, TellsOfEachChangeOfTheNextDueTime) {
  int told = 0;
  queue.onChange = [&] { ++told; };
  Timer timer(queue, "a", 100);
  EXPECT_EQ(told, 0);
  timer.SetEnabled(true);
  EXPECT_EQ(told, 1);
  timer.SetInterval(50);
  EXPECT_EQ(told, 2);
  After(50);
  EXPECT_GT(told, 2);
}

TEST_F(TimerQueueTest, HeldTimersTickNotAndMakeUpForOneTickAlone) {
  Timer slow(queue, "slow", 300, true);
  Timer fast(queue, "fast", 100, true);
  Note(slow);
  Note(fast);
  int told = 0;
  queue.onChange = [&] { ++told; };
  queue.Hold(true);
  EXPECT_EQ(told, 1);
  EXPECT_EQ(queue.UntilNext(), std::nullopt);
  EXPECT_EQ(After(1000), "");
  fast.SetEnabled(false);
  fast.SetEnabled(true);
  queue.Hold(false);
  EXPECT_EQ(queue.UntilNext(), 0U);
  EXPECT_EQ(After(0), "slow ");
  EXPECT_EQ(After(100), "fast ");
  told = 0;
  queue.Hold(false);
  EXPECT_EQ(told, 0);
}

TEST_F(TimerQueueTest, ATimerThatIsGoneTicksNoMore) {
  Timer staying(queue, "staying", 100, true);
  Note(staying);
  {
    Timer going(queue, "going", 50, true);
    Note(going);
  }
  EXPECT_EQ(After(100), "staying ");
}

}  // namespace
}  // namespace tarvo
