#include "checkup/executable_checks.h"

namespace tarvo {
namespace {

constexpr std::size_t kHeaderPlace = 0x3C;
constexpr std::size_t kLibraryFlag = 0x2000;
constexpr std::size_t kWholeHeader = 94;  ///< Up to the subsystem, from the signature on.
constexpr std::uint16_t kConsole = 3;

std::size_t NumberAt(std::string_view bytes, std::size_t place, std::size_t size) {
  std::size_t number = 0;
  for (std::size_t i = 0; i < size; ++i) {
    number |= static_cast<std::size_t>(static_cast<unsigned char>(bytes[place + i])) << (8 * i);
  }
  return number;
}

Finding Complaint(ComponentKind kind, const std::string& about, const std::string& wrong,
                  const std::string& advice) {
  return {"executable", Severity::Error,
          std::string(NameOf(kind)) + (about.empty() ? "" : ": " + about), wrong, advice};
}

constexpr char kChoose[] = "Choose the component's executable on the page Servers.";

std::optional<Finding> FindingOf(ComponentKind kind, const ExecutableFacts& facts) {
  const std::string& name = facts.name;
  if (name.empty()) return Complaint(kind, "", "No executable is chosen.", kChoose);
  if (facts.isLauncher) {
    return Complaint(kind, name, "The launcher's own executable is chosen.", kChoose);
  }
  if (!facts.present) {
    return Complaint(kind, name, "The file is missing in the server root.",
                     "Put it back, or choose another executable on the page Servers.");
  }
  if (!facts.readable) return std::nullopt;
  if (!facts.header.isProgram) {
    return Complaint(kind, name, "The file is no program of Windows.",
                     "Replace it by the server's executable.");
  }
  if (!facts.processorFits) {
    return Complaint(kind, name, "The program was built for another processor.",
                     "Replace it by one that was built for this machine.");
  }
  if (facts.header.hasConsole || facts.ownsWindow) return std::nullopt;
  return Finding{"executable", Severity::Note, std::string(NameOf(kind)) + ": " + name,
                 "The program is one of windows without a console; if it opens no window, it "
                 "counts as crashed.",
                 "Start it once, and see that it stays; servers with a console always own a "
                 "window."};
}

}  // namespace

ProgramHeader ReadProgramHeader(std::string_view bytes) {
  ProgramHeader header;
  if (bytes.size() < kHeaderPlace + 4 || !bytes.starts_with("MZ")) return header;
  const std::size_t place = NumberAt(bytes, kHeaderPlace, 4);
  if (place > bytes.size() || bytes.size() - place < kWholeHeader) return header;
  bytes.remove_prefix(place);
  if (!bytes.starts_with(std::string_view("PE\0\0", 4))) return header;
  header.isProgram = (NumberAt(bytes, 22, 2) & kLibraryFlag) == 0;
  header.processor = static_cast<std::uint16_t>(NumberAt(bytes, 4, 2));
  header.hasConsole = NumberAt(bytes, 92, 2) == kConsole;
  return header;
}

Findings CheckExecutables(const PerComponent<ExecutableFacts>& executables) {
  Findings findings;
  for (ComponentKind kind : kComponents) {
    if (const auto found = FindingOf(kind, executables[kind])) findings.push_back(*found);
  }
  for (ComponentKind one : kComponents) {
    for (ComponentKind other : kComponents) {
      const std::string& name = executables[one].name;
      if (one >= other || name.empty() || name != executables[other].name) continue;
      findings.push_back({"executable", Severity::Error,
                          std::string(NameOf(one)) + " and " + NameOf(other) + ": " + name,
                          "One executable is chosen for two components, so nothing can be started.",
                          kChoose});
    }
  }
  return findings;
}

Findings CheckSameName(ComponentKind kind, const std::string& executable,
                       const std::vector<NamesakeFacts>& namesakes) {
  Findings findings;
  for (const NamesakeFacts& namesake : namesakes) {
    const std::string about = std::string(NameOf(kind)) + ": " + executable + " (process " +
                              std::to_string(namesake.process) + ")";
    if (!namesake.fromRoot && !namesake.path.empty()) {
      findings.push_back({"same-name", Severity::Warning, about,
                          "A process of that name runs as " + namesake.path +
                              ", and \"Stop\" would end it as well.",
                          "Give the executables of each server root names of their own."});
    } else if (namesake.otherSession) {
      findings.push_back({"same-name", Severity::Warning, about,
                          "The process runs in another session, where its window cannot be seen, "
                          "so it would count as crashed.",
                          "End it there, and start it by this launcher."});
    }
  }
  return findings;
}

}  // namespace tarvo
