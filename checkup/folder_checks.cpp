#include "checkup/folder_checks.h"

#include "support/text.h"

namespace tarvo {
namespace {

/// The system's calls accept no longer path.
constexpr std::size_t kLongestPath = 259;
constexpr std::uint64_t kCopiesOfAll = 3;

Finding FolderFinding(Severity severity, const std::string& about, const std::string& wrong,
                      const std::string& advice) {
  return {"folder", severity, about, wrong, advice};
}

constexpr char kRoot[] = "Server root";

}  // namespace

Findings CheckFolder(const FolderFacts& facts) {
  if (!facts.inCodePage) {
    return {FolderFinding(Severity::Error, kRoot,
                          "Its path has letters that the system's code page does not have, so "
                          "nothing in it can be read.",
                          "Rename the folder.")};
  }
  if (!facts.answers) {
    return {FolderFinding(Severity::Error, kRoot, "The folder does not answer.",
                          "See whether its drive or share is there.")};
  }
  Findings findings;
  for (const FolderFacts::Unread& unread : facts.unread) {
    findings.push_back(FolderFinding(
        Severity::Error, unread.file,
        unread.why.empty() ? "The file is missing." : "The file cannot be read: " + unread.why,
        "Put the launcher into the server root, beside the folder conf, and see to its rights."));
  }
  for (const std::string& path : facts.unwritable) {
    findings.push_back(FolderFinding(Severity::Warning, path, "This user has no right to write it.",
                                     "Give the user of the launcher the right to write it."));
  }
  if (facts.freeSpace && *facts.freeSpace < kCopiesOfAll * facts.executablesSize) {
    findings.push_back(FolderFinding(Severity::Warning, kRoot,
                                     "The drive has only " +
                                         WithThousands(std::to_string(*facts.freeSpace / 1024)) +
                                         " KB left, less than three times the executables.",
                                     "Make room, or an upgrade may end half done."));
  }
  if (facts.hasBlank) {
    findings.push_back(
        FolderFinding(Severity::Warning, kRoot,
                      "Its path or the name of an executable has a blank: what follows "
                      "it reaches the servers as if it were an argument.",
                      "Rename it, if a server then takes another conf file or ends."));
  }
  if (facts.longestBackupPath > kLongestPath) {
    findings.push_back(FolderFinding(Severity::Warning, kRoot,
                                     "Its path is so long that no backup can be made in LBackup.",
                                     "Move the server root to a shorter path."));
  }
  return findings;
}

}  // namespace tarvo
