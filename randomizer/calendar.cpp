#include "randomizer/calendar.h"

#include <algorithm>

#include "randomizer/calendar_line.h"
#include "randomizer/server_lines.h"
#include "support/date_time.h"
#include "support/number_text.h"
#include "support/runtime_error.h"
#include "support/text.h"

namespace tarvo {
namespace {

constexpr char kLastRun[] = "LastRandProcess";

/// What cannot be read counts as missing.
LocalTime ReadDateTime(const std::string& text, LocalTime whenMissing) {
  try {
    return ParseDateTime(text);
  } catch (const RuntimeError&) {
    return whenMissing;
  }
}

}  // namespace

void RandomizerCalendar::Load() {
  set_.Load();
  ListEntries();
}

void RandomizerCalendar::ListEntries() {
  const Ref<Document> set = set_.Child();
  std::vector<std::string> lines;
  for (int i = 0; i < set->Fields().Count(); ++i) {
    const Ref<Field> entry = set->Fields().Field(i);
    lines.push_back(
        CalendarLineOf(entry->Name(), entry->Parameters().Parameter("Restart")->Value()));
  }
  controls_.entries.SetItems(std::move(lines));
}

void RandomizerCalendar::cmdCalendar_Click(std::size_t index) {
  if (!set_.ReadyForChange(log_, [this] { ListEntriesAnew(); })) return;
  if (index == 0) {
    Add();
  } else {
    Remove();
  }
  set_.Save();
}

void RandomizerCalendar::ListEntriesAnew() {
  const std::string selected = controls_.entries.Text();
  ListEntries();
  controls_.entries.Select(selected);
}

void RandomizerCalendar::Add() {
  if (controls_.days.ListIndex() < 0) return;
  for (std::size_t i = 0; i < controls_.times.size(); ++i) txt_Time_LostFocus(i);
  const std::string name =
      controls_.days.Text() + "_" + controls_.times[0].Text() + ":" + controls_.times[1].Text();
  Fields& entries = set_.Child()->Fields();
  if (IndexOfField(entries, name) >= 0) return;
  const char* const restart = controls_.restarts.ListIndex() == 0 ? "Yes" : "No";
  const int added = entries.AddField(name);
  entries.Field(added)->Parameters().AddParameter("Restart", restart);
  controls_.entries.AddItem(CalendarLineOf(name, restart));
}

void RandomizerCalendar::Remove() {
  const int selected = controls_.entries.ListIndex();
  if (selected < 0) return;
  const auto& lines = controls_.entries.Items();
  const std::string name = NameInCalendarLine(lines[static_cast<std::size_t>(selected)]);
  RemoveFieldOfLine(set_.Child()->Fields(), name, selected);
  controls_.entries.RemoveItem(selected);
}

void RandomizerCalendar::ScrollTime_Change(std::size_t index) {
  controls_.times[index].SetText(ZeroPadded(controls_.scrolls[index].Value()));
}

void RandomizerCalendar::txt_Time_LostFocus(std::size_t index) {
  const std::string typed = controls_.times[index].Text();
  ScrollBar& scroll = controls_.scrolls[index];
  if (IsNumeric(typed)) {
    const double value = std::clamp<double>(NumericValue(typed), scroll.Min(), scroll.Max());
    scroll.SetValue(static_cast<int>(value));
  }
  ScrollTime_Change(index);
}

void RandomizerCalendar::Tick() {
  const LocalTime now = clock_.Now();
  const MinuteOfWeek current = MinuteOfWeekAt(now);
  const std::string_view today = DayName(current.weekday);
  const auto& lines = controls_.entries.Items();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (!lines[i].starts_with(today)) continue;
    const auto entry = ReadCalendarLine(lines[i]);
    if (!entry || entry->at != current) continue;
    if (LastMinute() == current) return;
    Run(entry->restarts);
  }
}

std::optional<MinuteOfWeek> RandomizerCalendar::LastMinute() const {
  const LocalTime longAgo = LastRunWhenMissing(clock_.Now());
  const LocalTime last = ReadDateTime(store_.Text(kLastRun, GeneralDate(longAgo)), longAgo);
  if (last == longAgo) return std::nullopt;
  return MinuteOfWeekAt(last);
}

void RandomizerCalendar::Run(bool restarts) {
  if (controls_.ranges.Items().empty()) log_.LogStatus("Randomize: Nothing to do!", kExtra);
  engine_.RunRandomizer();
  if (restarts) {
    log_.LogStatus("Randomize: Restarting Server", kExtra);
    if (restartRunning) restartRunning();
  }
  store_.Write(kLastRun, GeneralDate(clock_.Now()));
}

LocalTime LastRunWhenMissing(LocalTime now) { return now - std::chrono::days(1000); }

}  // namespace tarvo
