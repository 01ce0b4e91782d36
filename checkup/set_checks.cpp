#include "checkup/set_checks.h"

#include "randomizer/calendar_line.h"
#include "randomizer/server_lines.h"
#include "support/number_text.h"

namespace tarvo {
namespace {

constexpr std::size_t kMostNamed = 50;
constexpr int kLastHour = 23;
constexpr int kLastMinute = 59;

Finding SetFinding(Severity severity, const std::string& about, const std::string& wrong,
                   const std::string& advice) {
  return {"sets", severity, about, wrong, advice};
}

void Keep(std::vector<std::string>& names, std::string_view name) {
  if (names.size() < kMostNamed) names.emplace_back(name);
}

bool Comes(const std::string& line) {
  const auto entry = ReadCalendarLine(line);
  return entry && entry->at.weekday > 0 && entry->at.hour <= kLastHour &&
         entry->at.minute <= kLastMinute;
}

}  // namespace

void TakeRanges(Fields& ranges, const Fields& settings, SetsFacts& facts) {
  const auto known = FirstFields(settings);
  for (int i = 0; i < ranges.Count(); ++i) {
    const Ref<Field> range = ranges.Field(i);
    if (facts.settingsRead && !known.contains(range->NameView())) {
      Keep(facts.unknown, range->NameView());
    }
    const double least = NumericValue(range->Parameters().Parameter("Min")->Value());
    const double greatest = NumericValue(range->Parameters().Parameter("Max")->Value());
    if (least > greatest) Keep(facts.crossed, range->NameView());
  }
}

void TakeEntries(Fields& entries, SetsFacts& facts) {
  for (int i = 0; i < entries.Count(); ++i) {
    const Ref<Field> entry = entries.Field(i);
    const std::string restart = entry->Parameters().Parameter("Restart")->Value();
    if (!Comes(CalendarLineOf(entry->Name(), restart))) Keep(facts.never, entry->NameView());
  }
}

Findings CheckSets(const SetsFacts& facts) {
  Findings findings;
  const char* const broken =
      "The file cannot be read whole, so its entries can be neither all used "
      "nor changed.";
  const char* const mend = "Correct the file by hand, or take it away and enter its entries anew.";
  if (!facts.rangesWhole) {
    findings.push_back(SetFinding(Severity::Error, "randomize.xml", broken, mend));
  }
  if (!facts.entriesWhole) {
    findings.push_back(SetFinding(Severity::Error, "rndcalendar.xml", broken, mend));
  }
  if (!facts.settingsThere) {
    findings.push_back(SetFinding(Severity::Warning, "conf\\battle_athena.conf",
                                  "The file cannot be read, so nothing can be randomized.",
                                  "Put it back into the folder conf of the server root."));
  }
  for (const std::string& name : facts.unknown) {
    findings.push_back(SetFinding(Severity::Warning, "randomize.xml: " + name,
                                  "conf\\battle_athena.conf has no such setting, so its range has "
                                  "no effect.",
                                  "Remove the range, or add the setting to the file."));
  }
  for (const std::string& name : facts.crossed) {
    findings.push_back(SetFinding(Severity::Note, "randomize.xml: " + name,
                                  "The range's minimum is above its maximum; the two are swapped "
                                  "when it is used.",
                                  "Enter the range the right way round."));
  }
  for (const std::string& name : facts.never) {
    findings.push_back(SetFinding(Severity::Warning, "rndcalendar.xml: " + name,
                                  "The entry is no day and time of a week, and is never due.",
                                  "Remove the entry, and add it anew on the page Server Battle "
                                  "Randomizer."));
  }
  return findings;
}

}  // namespace tarvo
