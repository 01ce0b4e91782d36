#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/code_page.h"

namespace tarvo {

/// How much a finding matters: an error keeps something from working, a warning may, a note is
/// worth knowing.
enum class Severity { Error, Warning, Note };

/// "error", "warning", "note".
const char* NameOf(Severity severity);

/// The names of the checks, in the order in which their findings are told. They are for scripts and
/// never change.
inline constexpr const char* kCheckNames[] = {
    "conf-line-ends", "conf-key-missed", "port",   "host",     "port-held", "executable",
    "same-name",      "watch",           "folder", "settings", "sets",      "upgrade"};

/// Something that the operator may want to put right.
struct Finding {
  std::string name;  ///< One of `kCheckNames`.
  Severity severity = Severity::Note;
  std::string about;   ///< A file, a component, a setting.
  std::string wrong;   ///< What is wrong, in one sentence.
  std::string advice;  ///< What to do, in one sentence.

  bool operator==(const Finding&) const = default;
};

using Findings = std::vector<Finding>;

/// In the order of `kCheckNames`; findings of one check stay as they are.
void PutInOrder(Findings& findings);

/// Errors and warnings.
std::size_t CountForAttention(const Findings& findings);

/// 0 for none and for notes alone, 1 for warnings, 2 for errors.
int ExitCodeOf(const Findings& findings);

/// Three lines for each: severity, name and what it is about; what is wrong; what to do.
std::vector<std::string> LinesOf(const Finding& finding);

/// "2 errors, 1 warning, 3 notes." or "Nothing to complain about."
std::string SummaryOf(const Findings& findings);

/// All of them as text: their lines and the summary, each line ended by CR LF.
std::string TextOf(const Findings& findings);

/// All of them as JSON in UTF-8: an object of "findings", each with "name", "severity", "about",
/// "wrong" and "advice", and of the counts "errors", "warnings" and "notes".
std::string JsonOf(const Findings& findings, CodePage& codePage);

}  // namespace tarvo
