#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/sockets.h"
#include "tests/simulation/call_recorder.h"
#include "tests/simulation/sim_clock.h"
#include "tests/simulation/sim_processes.h"

namespace tarvo {

/// The sockets library of a machine whose own address is 127.0.0.1, as unkind as a real one. A
/// connect there meets what its processes answer; at every other address packets are dropped, and
/// the system gives up after 21 seconds unless the caller's time ends before. A refusal is believed
/// after two repeats, 2 seconds, unless the first packet is sent once.
///
/// Names of the machine's hosts file are found at once. All others are the name server's, who knows
/// those that the test has told him.
class SimNetwork final : public Sockets {
 public:
  SimNetwork(CallRecorder& recorder, SimClock& clock, SimProcesses& processes)
      : recorder_(recorder), clock_(clock), processes_(processes) {}

  int Start(std::uint16_t version) override;
  void Stop() override;
  SocketHandle Create(int addressFamily, int type, int protocol) override;
  void Close(SocketHandle socket) override;
  std::optional<ProtocolRecord> ReadOption(SocketHandle socket, int level, int option) override;
  std::uint32_t DottedAddress(const std::string& host) override;
  HostAnswer FirstAddressOf(const std::string& host, std::uint32_t milliseconds) override;
  bool SendFirstPacketOnce(SocketHandle socket) override;
  int ConnectTo(SocketHandle socket, const SocketAddress& address,
                std::uint32_t milliseconds) override;

  /// The library cannot be started: this number comes back.
  void FailStart(int code) { startCode_ = code; }
  void RefuseSockets(bool refuse) { refuseSockets_ = refuse; }
  /// The handle of the next socket; those after it count on.
  void SetNextSocket(SocketHandle handle) { lastSocket_ = handle - 1; }
  void HideProtocolRecord(bool hide) { hideRecord_ = hide; }
  void SetProtocolRecord(const ProtocolRecord& record) { record_ = record; }
  /// A name of the machine's hosts file.
  void AddHost(const std::string& name, std::vector<std::uint8_t> address);
  /// A name of the name server.
  void AddServedName(const std::string& name, std::vector<std::uint8_t> address);
  /// Milliseconds that the name server takes for each answer from now on. From 12 seconds on the
  /// system gives up asking, and finds nothing.
  void SetNameServerDelay(std::uint32_t delay) { nameServerDelay_ = delay; }
  static constexpr std::uint32_t kDeadNameServer = 12000;
  /// An old system, which cannot be told to send the first packet once.
  void AlwaysRepeatPackets() { repeatsAlways_ = true; }
  /// Whatever time the caller gives, he waits as long as the system does.
  void WaitAsTheSystemDoes() { patient_ = true; }

  std::uint16_t StartedVersion() const { return startedVersion_; }
  int Starts() const { return starts_; }
  int Stops() const { return stops_; }
  /// Questions for the name server that have no answer yet, or one that nobody has fetched.
  std::size_t OpenQuestions() const { return questions_.size(); }
  /// Milliseconds that callers have waited in all.
  std::uint64_t Waited() const { return waited_; }
  std::size_t OpenSockets() const { return open_.size(); }
  /// Their program has ended.
  void CloseAll() { open_.clear(); }
  /// The addresses that were connected to, as they went on the wire.
  const std::vector<SocketAddress>& Connects() const { return connects_; }
  void KeepNoConnects() { keepConnects_ = false; }

 private:
  struct Question {
    std::uint64_t answeredAt = 0;  ///< On `SimClock::Age`.
    std::vector<std::uint8_t> address;
    bool waitedFor = false;
  };

  std::optional<std::vector<std::uint8_t>> KnownHere(const std::string& host) const;
  Question Ask(const std::string& name) const;
  PortAnswer AnswerFor(const SocketAddress& address);
  /// Lets a wait pass that the system would end after `needed`; false when the caller's own time
  /// ends before.
  bool Wait(std::uint64_t needed, std::uint32_t given);

  CallRecorder& recorder_;
  SimClock& clock_;
  SimProcesses& processes_;
  std::map<std::string, std::vector<std::uint8_t>> hosts_;
  std::map<std::string, std::vector<std::uint8_t>> servedNames_;
  std::map<std::string, Question> questions_;
  std::set<SocketHandle> open_;
  std::set<SocketHandle> sendingOnce_;
  std::vector<SocketAddress> connects_;
  std::optional<ProtocolRecord> record_;
  SocketHandle lastSocket_ = 100;
  std::uint64_t waited_ = 0;
  std::uint32_t nameServerDelay_ = 0;
  bool repeatsAlways_ = false;
  bool patient_ = false;
  std::uint16_t startedVersion_ = 0;
  int startCode_ = 0;
  int starts_ = 0;
  int stops_ = 0;
  bool refuseSockets_ = false;
  bool hideRecord_ = false;
  bool keepConnects_ = true;
};

}  // namespace tarvo
