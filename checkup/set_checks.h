#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "checkup/finding.h"
#include "xmldoc/fields.h"

namespace tarvo {

/// What entries of a set are told by; of very many the first fifty, and how many more there are.
struct EntryNames {
  std::vector<std::string> names;
  std::size_t more = 0;
};

/// The randomizer's sets and the settings that they are for.
struct SetsFacts {
  bool rangesWhole = true;    ///< `randomize.xml` was read to its end, or is not there.
  bool entriesWhole = true;   ///< `rndcalendar.xml` likewise.
  bool settingsThere = true;  ///< `battle_athena.conf` could be read.
  bool settingsRead = true;   ///< It was read to its end.
  EntryNames unknown;         ///< Settings with a range that `battle_athena.conf` lacks.
  EntryNames crossed;         ///< Settings whose range has its greatest value first.
  EntryNames never;           ///< Entries of the calendar that come at no time of a week.
};

/// Adds what the fields say: those of the ranges, of the server's settings, of the calendar.
void TakeRanges(Fields& ranges, const Fields& settings, SetsFacts& facts);
void TakeEntries(Fields& entries, SetsFacts& facts);

Findings CheckSets(const SetsFacts& facts);

}  // namespace tarvo
