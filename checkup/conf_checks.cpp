#include "checkup/conf_checks.h"

#include <algorithm>

#include "support/number_text.h"
#include "support/runtime_error.h"
#include "support/text.h"

namespace tarvo {
namespace {

constexpr char kBlanks[] = " \t";
constexpr std::size_t kLongestShown = 200;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// A line as an editor shows it.
struct ShownLine {
  std::string_view text;
  std::size_t number = 0;
  bool begins = true;  ///< It is where a line begins for the launcher as well.
};

template <typename Visit>
void ForEachShownLine(std::string_view text, Visit visit) {
  ShownLine line{{}, 1, true};
  for (;;) {
    const std::size_t end = text.find('\n');
    const bool whole = end != std::string_view::npos && end > 0 && text[end - 1] == '\r';
    line.text = text.substr(0, whole ? end - 1 : end);
    visit(line);
    if (end == std::string_view::npos) return;
    text.remove_prefix(end + 1);
    ++line.number;
    line.begins = whole;
  }
}

void SkipBlanks(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
}

/// Why a line that is meant to give the key does not; "" when it does, nothing for any other line.
std::optional<std::string> WhyMissed(std::string_view line, std::string_view key) {
  if (RestAfterKey(line, key)) return std::string();
  if (line.starts_with(kByteOrderMark)) {
    if (!RestAfterKey(line.substr(kByteOrderMark.size()), key)) return std::nullopt;
    return "a byte order mark stands before it";
  }
  const std::string_view name = key.substr(0, key.size() - 1);
  std::string_view rest = line;
  SkipBlanks(rest);
  const bool indented = rest.size() < line.size();
  const bool comment = rest.starts_with("//");
  rest.remove_prefix(comment ? std::min(rest.find_first_not_of('/'), rest.size()) : 0);
  SkipBlanks(rest);
  const std::string_view written = rest.substr(0, name.size());
  if (LowerCase(written) != name) return std::nullopt;
  rest.remove_prefix(name.size());
  const bool gap = !rest.empty() && rest.find_first_not_of(kBlanks) > 0 && rest.front() != ':';
  SkipBlanks(rest);
  if (!rest.starts_with(':')) return std::nullopt;
  if (comment) return "it is commented out";
  if (indented) return "blanks stand before it";
  return gap ? "a blank stands before its colon" : "its letter case is another";
}

/// The first line that is meant to give the key and does not, while no line that counts gives it.
struct KeySearch {
  const ConfigurationKey* key = nullptr;
  bool counts = false;
  bool hidden = false;  ///< It is written well, behind a bare line feed.
  std::size_t line = 0;
  std::string reason;
  bool comment = false;

  void Take(const ShownLine& shown) {
    if (counts) return;
    const auto why = WhyMissed(shown.text, key->key);
    if (!why) return;
    if (why->empty()) {
      (shown.begins ? counts : hidden) = true;
      return;
    }
    const bool isComment = *why == "it is commented out";
    // A line that is written wrongly tells more than a remark.
    if (!reason.empty() && (!comment || isComment)) return;
    line = shown.number;
    reason = *why;
    comment = isComment;
  }
};

std::vector<KeySearch> SearchKeys(const ConfText& conf) {
  std::vector<KeySearch> searches;
  for (const ConfigurationKey& key : kConfigurationKeys) {
    if (key.file == conf.file) searches.push_back({&key, false, false, 0, {}, false});
  }
  ForEachShownLine(conf.text, [&](const ShownLine& line) {
    for (KeySearch& search : searches) search.Take(line);
  });
  return searches;
}

/// Most servers leave the hosts in a remark and mean this machine by that.
Severity SeverityOf(const KeySearch& search) {
  const bool port = search.key->says == ConfigurationKey::Says::Port;
  return search.comment && !port ? Severity::Note : Severity::Warning;
}

std::optional<std::int32_t> NumberOf32Bits(std::string_view text) {
  try {
    return ToInteger(text);
  } catch (const RuntimeError&) {
    return std::nullopt;  // The reader of the file would end the program with it.
  }
}

std::string WhatBareFeedsDo(const LineEnds& ends) {
  if (ends.whole == 0) return "The file has bare line feeds and counts as one single line.";
  const char* const lines = ends.bare == 1 ? " line" : " lines";
  return std::to_string(ends.bare) + lines + ", the first of them line " +
         std::to_string(ends.firstBare) +
         ", end with a bare line feed and count as one line with what follows.";
}

}  // namespace

LineEnds LineEndsOf(std::string_view text) {
  LineEnds ends;
  std::size_t line = 1;
  for (std::size_t at = text.find('\n'); at != std::string_view::npos;
       at = text.find('\n', at + 1), ++line) {
    if (at > 0 && text[at - 1] == '\r') {
      ++ends.whole;
    } else if (ends.bare++ == 0) {
      ends.firstBare = line;
    }
  }
  return ends;
}

Findings CheckLineEnds(const ConfText& conf) {
  Findings findings;
  if (conf.cut) {
    findings.push_back({"conf-line-ends", Severity::Note, conf.About(),
                        "The file is so large that only its beginning was checked.",
                        "Make sure that it is the file that the server reads."});
  }
  const LineEnds ends = LineEndsOf(conf.text);
  if (ends.bare == 0) return findings;
  const std::vector<KeySearch> searches = SearchKeys(conf);
  const bool loses = std::any_of(searches.begin(), searches.end(), [](const KeySearch& search) {
    return search.hidden && !search.counts;
  });
  const Severity severity = loses ? Severity::Error : Severity::Warning;
  findings.push_back({"conf-line-ends", severity, conf.About(), WhatBareFeedsDo(ends),
                      "Press \"Repair\" in the check-up, or save the file with line ends of "
                      "Windows (CR LF)."});
  return findings;
}

Findings CheckMissedKeys(const ConfText& conf) {
  Findings findings;
  for (const KeySearch& search : SearchKeys(conf)) {
    if (search.counts || search.hidden || search.reason.empty()) continue;
    findings.push_back({"conf-key-missed", SeverityOf(search),
                        conf.About() + ", line " + std::to_string(search.line),
                        "The key \"" + std::string(search.key->key) +
                            "\" does not count here, since " + search.reason + ".",
                        "Let the line begin with exactly \"" + std::string(search.key->key) +
                            "\", and start the launcher again."});
  }
  return findings;
}

std::vector<KeyValues> ValuesOf(const ConfText& conf) {
  std::vector<KeyValues> values;
  for (const ConfigurationKey& key : kConfigurationKeys) {
    if (key.file == conf.file) values.push_back({&key, 0, {}, {}, {}});
  }
  ForEachLine(conf.text, [&](std::string_view line) {
    for (KeyValues& value : values) {
      const auto rest = RestAfterKey(line, value.key->key);
      if (!rest) continue;
      ++value.lines;
      value.last = Trimmed(*rest).substr(0, kLongestShown);
      if (value.key->says != ConfigurationKey::Says::Port) continue;
      value.number = NumberOf32Bits(*rest);
      if (!value.number && !value.noNumber) value.noNumber = value.last;
    }
  });
  return values;
}

std::string WithWholeLineEnds(std::string_view text) {
  std::string whole;
  whole.reserve(text.size() + LineEndsOf(text).bare);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')) whole += '\r';
    whole += text[i];
  }
  return whole;
}

}  // namespace tarvo
