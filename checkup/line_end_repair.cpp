#include "checkup/line_end_repair.h"

#include "checkup/conf_checks.h"
#include "support/date_time.h"

namespace tarvo {

std::string LineEndRepair::CopyOf(const std::string& path) const {
  return path + "." + DateStamp(clock_.Now()) + ".old";
}

std::optional<std::string> LineEndRepair::Repair(const std::string& path, const std::string& copy) {
  const auto notCopied = patience_.Try([&] { return copies_.CopyOver(path, copy); });
  if (notCopied) return "The old file could not be copied to " + copy + ": " + WordsOf(*notCopied);
  std::string text;
  // Of the copy, so that what is replaced is what was kept.
  if (files_.ReadText(copy, text) != ReadResult::Ok) return copy + " cannot be read";
  const auto notReplaced = replacer_.ReplaceText(path, WithWholeLineEnds(text));
  if (notReplaced) return path + " could not be replaced: " + WordsOf(*notReplaced);
  return std::nullopt;
}

}  // namespace tarvo
