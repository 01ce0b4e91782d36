#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/file_inspection.h"
#include "platform/network_inspection.h"
#include "platform/process_inspection.h"
#include "tests/simulation/call_recorder.h"
#include "tests/simulation/sim_clock.h"
#include "tests/simulation/sim_file_copies.h"
#include "tests/simulation/sim_files.h"
#include "tests/simulation/sim_processes.h"

namespace tarvo {

/// Looks at the machine's files, processes and ports. It runs 32-bit and 64-bit programs of the
/// usual processors, its drive has room for everything, and its one address beside 127.0.0.1 is
/// 10.0.0.1, until a test says otherwise.
class SimInspection final : public FileInspection,
                            public ProcessInspection,
                            public NetworkInspection {
 public:
  SimInspection(CallRecorder& recorder, SimClock& clock, SimFiles& files, SimFileCopies& copies,
                SimProcesses& processes)
      : recorder_(recorder), clock_(clock), files_(files), copies_(copies), processes_(processes) {}

  FileLook LookAt(const std::string& path, std::uint32_t milliseconds) override;
  ReadResult ReadBeginning(const std::string& path, std::size_t most, std::string& text) override;
  std::optional<FileFault> WhyUnwritable(const std::string& path) override;
  std::optional<std::uint64_t> FreeSpace(const std::string& folder) override;

  std::string PathOf(ProcessId id) override;
  std::optional<std::uint32_t> SessionOf(ProcessId id) override;
  ProcessId OwnId() override { return kOwnId; }
  bool StartsProgramsFor(std::uint16_t processor) override;

  std::vector<Listener> Listeners() override;
  std::vector<std::uint32_t> OwnAddresses() override;

  /// Whoever looks at something of that beginning gets no answer, or gets one again.
  void Silence(const std::string& beginning, bool silent = true);
  void SetFreeSpace(std::optional<std::uint64_t> bytes) { freeSpace_ = bytes; }
  /// As on a drive whose system cannot tell two names of one file.
  void TellNoIdentity() { tellsIdentity_ = false; }
  /// A program whose name is not listed, or an old system, holds a port of every address.
  void HoldPort(std::uint16_t port, ProcessId holder) { held_[port] = holder; }
  /// Milliseconds that all looks together have waited.
  std::uint64_t Waited() const { return waited_; }
  std::size_t LongestRead() const { return longestRead_; }

  static constexpr ProcessId kOwnId = 900;
  static constexpr std::uint32_t kOwnSession = 1;

 private:
  CallRecorder& recorder_;
  SimClock& clock_;
  SimFiles& files_;
  SimFileCopies& copies_;
  SimProcesses& processes_;
  std::set<std::string> silent_;
  std::map<std::uint16_t, ProcessId> held_;
  std::optional<std::uint64_t> freeSpace_ = 1ULL << 40;
  bool tellsIdentity_ = true;
  std::uint64_t waited_ = 0;
  std::size_t longestRead_ = 0;
};

/// The first bytes of an executable, as its header is made: for a processor, with a console or with
/// windows, a library or a program.
std::string ProgramBytes(std::uint16_t processor = 0x8664, std::uint16_t subsystem = 3,
                         bool library = false);

}  // namespace tarvo
