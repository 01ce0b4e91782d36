#include "checkup/finding.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "support/json_writer.h"

namespace tarvo {
namespace {

std::size_t CountOf(const Findings& findings, Severity severity) {
  return static_cast<std::size_t>(
      std::count_if(findings.begin(), findings.end(),
                    [severity](const Finding& finding) { return finding.severity == severity; }));
}

}  // namespace

const char* NameOf(Severity severity) {
  switch (severity) {
    case Severity::Error:
      return "error";
    case Severity::Warning:
      return "warning";
    case Severity::Note:
      break;
  }
  return "note";
}

void PutInOrder(Findings& findings) {
  Findings ordered;
  ordered.reserve(findings.size());
  for (const std::string_view name : kCheckNames) {
    for (Finding& finding : findings) {
      if (finding.name == name) ordered.push_back(std::move(finding));
    }
  }
  findings = std::move(ordered);
}

std::size_t CountForAttention(const Findings& findings) {
  return findings.size() - CountOf(findings, Severity::Note);
}

int ExitCodeOf(const Findings& findings) {
  if (CountOf(findings, Severity::Error) > 0) return 2;
  return CountOf(findings, Severity::Warning) > 0 ? 1 : 0;
}

std::vector<std::string> LinesOf(const Finding& finding) {
  return {std::string(NameOf(finding.severity)) + ": " + finding.name + ": " + finding.about,
          "    " + finding.wrong, "    " + finding.advice};
}

std::string SummaryOf(const Findings& findings) {
  std::string text;
  for (Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
    const std::size_t count = CountOf(findings, severity);
    if (count == 0) continue;
    text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + NameOf(severity) +
            (count > 1 ? "s" : "");
  }
  return text.empty() ? "Nothing to complain about." : text + ".";
}

std::string TextOf(const Findings& findings) {
  std::string text;
  for (const Finding& finding : findings) {
    for (const std::string& line : LinesOf(finding)) text += line + "\r\n";
  }
  return text + SummaryOf(findings) + "\r\n";
}

std::string JsonOf(const Findings& findings, CodePage& codePage) {
  JsonWriter json;
  json.BeginObject().Name("findings").BeginArray();
  for (const Finding& finding : findings) {
    json.BeginObject();
    json.Name("name").String(finding.name);
    json.Name("severity").String(NameOf(finding.severity));
    json.Name("about").String(codePage.ToUtf8(finding.about));
    json.Name("wrong").String(codePage.ToUtf8(finding.wrong));
    json.Name("advice").String(codePage.ToUtf8(finding.advice));
    json.EndObject();
  }
  json.EndArray();
  for (Severity severity : {Severity::Error, Severity::Warning, Severity::Note}) {
    json.Name(std::string(NameOf(severity)) + "s");
    json.Number(static_cast<std::int64_t>(CountOf(findings, severity)));
  }
  return json.EndObject().Text();
}

}  // namespace tarvo
