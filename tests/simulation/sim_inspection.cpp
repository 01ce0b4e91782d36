#include "tests/simulation/sim_inspection.h"

#include <algorithm>
#include <cstring>

#include "support/text.h"

namespace tarvo {
namespace {

constexpr std::size_t kHeaderPlace = 128;

void PutNumber(std::string& bytes, std::size_t place, std::uint16_t number) {
  bytes[place] = static_cast<char>(number & 0xFF);
  bytes[place + 1] = static_cast<char>(number >> 8);
}

std::uint32_t InNetworkOrder(const std::uint8_t (&bytes)[4]) {
  std::uint32_t address = 0;
  std::memcpy(&address, bytes, sizeof address);
  return address;
}

}  // namespace

std::string ProgramBytes(std::uint16_t processor, std::uint16_t subsystem, bool library) {
  std::string bytes(512, '\0');
  bytes.replace(0, 2, "MZ");
  PutNumber(bytes, 0x3C, kHeaderPlace);
  bytes.replace(kHeaderPlace, 2, "PE");
  PutNumber(bytes, kHeaderPlace + 4, processor);
  PutNumber(bytes, kHeaderPlace + 22, library ? 0x2002 : 0x0002);
  PutNumber(bytes, kHeaderPlace + 92, subsystem);
  return bytes;
}

FileLook SimInspection::LookAt(const std::string& path, std::uint32_t milliseconds) {
  recorder_.Note("inspection.lookAt(" + path + ")");
  FileLook look;
  const std::string lower = LowerCase(path);
  for (const std::string& beginning : silent_) {
    if (!lower.starts_with(beginning)) continue;
    clock_.Advance(milliseconds);
    waited_ += milliseconds;
    return look;
  }
  look.outcome = FileLook::Outcome::There;
  look.isFolder = files_.HasFolder(path);
  look.identity = lower;
  if (look.isFolder) return look;
  if (!files_.Has(path)) return {FileLook::Outcome::Missing, false, 0, {}, {}};
  look.identity = tellsIdentity_ ? LowerCase(files_.RealPath(path)) : "";
  look.size = files_.TextOf(path).size();
  look.modified = std::chrono::sys_seconds(std::chrono::seconds(copies_.DateOf(path)));
  return look;
}

ReadResult SimInspection::ReadBeginning(const std::string& path, std::size_t most,
                                        std::string& text) {
  recorder_.Note("inspection.readBeginning(" + path + ")");
  if (!files_.Has(path)) return ReadResult::Missing;
  if (files_.Unreadable(path)) return ReadResult::Failed;
  text = files_.TextOf(path).substr(0, most);
  longestRead_ = std::max(longestRead_, text.size());
  return ReadResult::Ok;
}

std::optional<FileFault> SimInspection::WhyUnwritable(const std::string& path) {
  recorder_.Note("inspection.whyUnwritable(" + path + ")");
  if (!files_.Has(path) && !files_.HasFolder(path)) return std::nullopt;
  if (files_.Held(path)) return FileFault{32, "The file is in use", FileTrouble::Held};
  if (files_.Protected(path) || copies_.Denied(path + "\\")) {
    return FileFault{5, "Access is denied"};
  }
  return std::nullopt;
}

std::optional<std::uint64_t> SimInspection::FreeSpace(const std::string& folder) {
  recorder_.Note("inspection.freeSpace(" + folder + ")");
  return freeSpace_;
}

std::string SimInspection::PathOf(ProcessId id) {
  recorder_.Note("inspection.pathOf(" + std::to_string(id) + ")");
  for (const SimProcess& process : processes_.Running()) {
    if (process.id == id) return process.path;
  }
  return {};
}

std::optional<std::uint32_t> SimInspection::SessionOf(ProcessId id) {
  recorder_.Note("inspection.sessionOf(" + std::to_string(id) + ")");
  if (id == kOwnId) return kOwnSession;
  for (const SimProcess& process : processes_.Running()) {
    if (process.id == id) return process.session;
  }
  return std::nullopt;
}

bool SimInspection::StartsProgramsFor(std::uint16_t processor) {
  return processor == 0x8664 || processor == 0x14C;
}

std::vector<Listener> SimInspection::Listeners() {
  recorder_.Note("inspection.listeners()");
  std::vector<Listener> listeners;
  for (const auto& [port, holder] : held_) listeners.push_back({0, port, holder});
  for (const SimProcess& process : processes_.Running()) {
    const bool open = clock_.Age() >= process.startedAt + process.program.portOpensAfter;
    if (process.program.port == 0 || !open || process.endsAt) continue;
    listeners.push_back({0, process.program.port, process.id});
  }
  return listeners;
}

std::vector<std::uint32_t> SimInspection::OwnAddresses() {
  return {InNetworkOrder({127, 0, 0, 1}), InNetworkOrder({10, 0, 0, 1})};
}

void SimInspection::Silence(const std::string& beginning, bool silent) {
  if (silent) {
    silent_.insert(LowerCase(beginning));
  } else {
    silent_.erase(LowerCase(beginning));
  }
}

}  // namespace tarvo
