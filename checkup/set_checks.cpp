#include "checkup/set_checks.h"

#include "randomizer/calendar_line.h"
#include "randomizer/server_lines.h"
#include "support/number_text.h"

namespace tarvo {
namespace {

constexpr std::size_t kMostNamed = 50;

Finding SetFinding(Severity severity, const std::string& about, const std::string& wrong,
                   const std::string& advice) {
  return {"sets", severity, about, wrong, advice};
}

void Keep(EntryNames& entries, std::string_view name) {
  if (entries.names.size() < kMostNamed) {
    entries.names.emplace_back(name);
  } else {
    ++entries.more;
  }
}

/// What is wrong with each of the entries, and what to do. `finding` is about their file.
void Tell(const EntryNames& entries, const Finding& finding, Findings& findings) {
  const auto tell = [&](const std::string& entry) {
    findings.push_back(finding);
    findings.back().about += ": " + entry;
  };
  for (const std::string& name : entries.names) tell(name);
  if (entries.more > 0) tell(std::to_string(entries.more) + " more");
}

bool Comes(const std::string& line) {
  const auto entry = ReadCalendarLine(line);
  return entry && ComesInAWeek(entry->at);
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
  Tell(facts.unknown,
       SetFinding(Severity::Warning, "randomize.xml",
                  "conf\\battle_athena.conf has no such setting, so its range has no effect.",
                  "Remove the range, or add the setting to the file."),
       findings);
  Tell(facts.crossed,
       SetFinding(Severity::Note, "randomize.xml",
                  "The range's minimum is above its maximum; the two are swapped when it is used.",
                  "Enter the range the right way round."),
       findings);
  Tell(facts.never,
       SetFinding(Severity::Warning, "rndcalendar.xml",
                  "The entry is no day and time of a week, and is never due.",
                  "Remove the entry, and add it anew on the page Server Battle Randomizer."),
       findings);
  return findings;
}

}  // namespace tarvo
