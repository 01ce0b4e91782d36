#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace tarvo {

/// A moment of local wall-clock time, to the second.
using LocalTime = std::chrono::local_seconds;

/// Date and time as the operator reads them, the same on every machine whatever its region:
/// "2026-11-21 10:32:07". The time is always given, at midnight too.
std::string GeneralDate(LocalTime time);

/// The digits of year, month, day, hour, minute and second: "20261121103207".
std::string DateStamp(LocalTime time);

/// Reads a date-time text: a date, a time "hh:mm" or "hh:mm:ss" with an optional "AM" or "PM", or
/// both with blanks between; a time alone is on 1899-12-30. The parts of a date are separated by
/// "-", "/" or ".": the year first, or last with the month before the day, unless there is no such
/// month; between dots the day comes first. Years are 100 to 9999; of two digits, 00 to 29 are in
/// this century. Raises type mismatch (13) for every other text.
LocalTime ParseDateTime(std::string_view text);

/// The moment of a date's number: days since 1899-12-30, the fraction being the time of day, to the
/// nearest second; before that day the fraction still counts forward from its midnight. Raises type
/// mismatch (13) outside the years 100 to 9999.
LocalTime DateOfNumber(double number);

}  // namespace tarvo
