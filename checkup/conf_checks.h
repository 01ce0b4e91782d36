#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "checkup/finding.h"
#include "core/configuration_keys.h"

namespace tarvo {

/// A conf file as it was read, or its beginning.
struct ConfText {
  std::string file;  ///< "char_athena.conf"
  std::string_view text;
  bool cut = false;  ///< The file goes on after `text`.

  std::string About() const { return "conf\\" + file; }
};

/// Which line ends a text has.
struct LineEnds {
  std::size_t whole = 0;      ///< CR LF.
  std::size_t bare = 0;       ///< Line feeds without a carriage return before them.
  std::size_t firstBare = 0;  ///< The line that ends with the first of them, counted from 1.
};

LineEnds LineEndsOf(std::string_view text);

/// Bare line feeds: what stands between two CR LF is one line, whatever an editor shows. An error
/// when a key of the file is lost by it.
Findings CheckLineEnds(const ConfText& conf);

/// Keys that are there and do not count, and that no other line gives.
Findings CheckMissedKeys(const ConfText& conf);

/// What the lines that count say of one key.
struct KeyValues {
  const ConfigurationKey* key = nullptr;
  std::size_t lines = 0;
  std::string last;  ///< Of the last line, which counts; trimmed, and cut at 200 bytes.
  std::optional<std::int32_t> number;   ///< Of the last line of a port, when it is one.
  std::optional<std::string> noNumber;  ///< The first line of a port that is no 32-bit number.
};

/// The values of all keys of the file.
std::vector<KeyValues> ValuesOf(const ConfText& conf);

/// The text with CR LF for each bare line feed.
std::string WithWholeLineEnds(std::string_view text);

}  // namespace tarvo
