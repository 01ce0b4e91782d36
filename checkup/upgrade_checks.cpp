#include "checkup/upgrade_checks.h"

#include <algorithm>
#include <optional>

namespace tarvo {
namespace {

using Outcome = FileLook::Outcome;

/// What is wrong with it; nothing when it can be used.
std::optional<std::string> FaultOf(const UpgradeFacts& facts) {
  if (facts.newFile.empty()) return "No new executable is chosen, so no upgrade can be made.";
  if (facts.atNew.outcome == Outcome::NotAnswered) {
    return "The drive or share of the new executable does not answer.";
  }
  if (facts.atNew.outcome == Outcome::Missing || facts.atNew.isFolder) {
    return "The new executable is missing.";
  }
  if (!facts.atNew.identity.empty() && facts.atNew.identity == facts.atTarget.identity) {
    return "The new executable is the very file that it would replace.";
  }
  if (facts.atNew.modified < facts.atTarget.modified) {
    return "The new executable is older than the one that it would replace.";
  }
  return std::nullopt;
}

}  // namespace

Findings CheckUpgrade(const PerComponent<UpgradeFacts>& facts) {
  Findings findings;
  if (std::all_of(facts.begin(), facts.end(),
                  [](const UpgradeFacts& one) { return one.newFile.empty(); })) {
    return findings;
  }
  for (ComponentKind kind : kComponents) {
    const auto fault = FaultOf(facts[kind]);
    if (!fault) continue;
    const std::string& path = facts[kind].newFile;
    findings.push_back({"upgrade", Severity::Warning,
                        std::string(NameOf(kind)) + (path.empty() ? "" : ": " + path), *fault,
                        "Choose the newly built executable on the page Upgrade."});
  }
  return findings;
}

}  // namespace tarvo
