#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>

#include "core/settings_store.h"
#include "core/status_log.h"
#include "platform/clock.h"
#include "randomizer/calendar_line.h"
#include "randomizer/engine.h"
#include "randomizer/stored_set.h"
#include "toolkit/controls.h"

namespace tarvo {

/// The day, time and restart of an entry that is to be added, and all entries.
struct CalendarControls {
  ListBox& days;
  std::array<ScrollBar, 2>& scrolls;  ///< 0 the hour, 1 the minute.
  std::array<TextBox, 2>& times;      ///< The same as texts of two digits.
  const DropDownList& restarts;       ///< 0 "Yes", 1 "No".
  ListBox& entries;
  const ListBox& ranges;  ///< The settings that a run gives new values.
};

/// The group "Randomize Calendar  (program  mode)": days and times of the week at which the engine
/// runs and, if the entry says so, the running servers are restarted.
///
/// The minute of the week that ran last is not run again, whatever the date: that keeps the four
/// ticks of a minute from running it four times. A single entry therefore runs once, and not again
/// until another entry has run. Minutes that were missed are not caught up.
class RandomizerCalendar {
 public:
  RandomizerCalendar(const CalendarControls& controls, StoredSet& set, RandomizerEngine& engine,
                     SettingsStore& store, LocalClock& clock, StatusLog& log)
      : controls_(controls), set_(set), engine_(engine), store_(store), clock_(clock), log_(log) {}

  /// Reads the file and lists its entries; call it once at start-up.
  void Load();

  /// 0 adds the day and time of the page at the end, unless the entry is there already; 1 removes
  /// the selected entry. Both write the file, even when nothing has changed. A set that is not
  /// ready for a change (see StoredSet) is reported in the log, and the press has no other effect.
  void cmdCalendar_Click(std::size_t index);

  /// A scroll bar was moved: 0 the hour's, 1 the minute's. Its text box shows the value.
  void ScrollTime_Change(std::size_t index);
  /// The operator has typed into the hour's or minute's box and leaves it: a number goes to the
  /// scroll bar, at most its greatest; any other text is replaced by the scroll bar's value.
  void txt_Time_LostFocus(std::size_t index);

  /// The tick of `tmr_Calendar`, every 15 seconds in the mode "Program".
  void Tick();

  /// The minute of the week that ran last, which is not run again; nothing before the first run.
  std::optional<MinuteOfWeek> LastMinute() const;

  /// Restarts every running server.
  std::function<void()> restartRunning;

 private:
  void ListEntries();
  /// The same, and the line that was selected is selected again.
  void ListEntriesAnew();
  void Add();
  void Remove();
  void Run(bool restarts);

  CalendarControls controls_;
  StoredSet& set_;
  RandomizerEngine& engine_;
  SettingsStore& store_;
  LocalClock& clock_;
  StatusLog& log_;
};

/// The moment that a missing or unreadable `LastRandProcess` means: 1000 days ago.
LocalTime LastRunWhenMissing(LocalTime now);

}  // namespace tarvo
