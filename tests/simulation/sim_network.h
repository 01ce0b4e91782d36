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

/// The sockets library of a machine whose own address is 127.0.0.1. A connect there meets what its
/// processes answer; every other address meets what the test has set, or nobody.
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
  std::optional<std::vector<std::uint8_t>> FirstAddressOf(const std::string& host) override;
  int ConnectTo(SocketHandle socket, const SocketAddress& address) override;

  /// The library cannot be started: this number comes back.
  void FailStart(int code) { startCode_ = code; }
  void RefuseSockets(bool refuse) { refuseSockets_ = refuse; }
  void HideProtocolRecord(bool hide) { hideRecord_ = hide; }
  void SetProtocolRecord(const ProtocolRecord& record) { record_ = record; }
  /// A name of the machine's hosts file.
  void AddHost(const std::string& name, std::vector<std::uint8_t> address);
  /// Milliseconds that a connect takes when nobody answers, or when it is refused.
  void SetDelays(std::uint32_t timeOut, std::uint32_t refusal);

  std::uint16_t StartedVersion() const { return startedVersion_; }
  int Starts() const { return starts_; }
  int Stops() const { return stops_; }
  std::size_t OpenSockets() const { return open_.size(); }
  /// The addresses that were connected to, as they went on the wire.
  const std::vector<SocketAddress>& Connects() const { return connects_; }
  void KeepNoConnects() { keepConnects_ = false; }

 private:
  PortAnswer AnswerFor(const SocketAddress& address);

  CallRecorder& recorder_;
  SimClock& clock_;
  SimProcesses& processes_;
  std::map<std::string, std::vector<std::uint8_t>> hosts_;
  std::set<SocketHandle> open_;
  std::vector<SocketAddress> connects_;
  std::optional<ProtocolRecord> record_;
  SocketHandle lastSocket_ = 100;
  std::uint32_t timeOut_ = 21000;
  std::uint32_t refusal_ = 0;
  std::uint16_t startedVersion_ = 0;
  int startCode_ = 0;
  int starts_ = 0;
  int stops_ = 0;
  bool refuseSockets_ = false;
  bool hideRecord_ = false;
  bool keepConnects_ = true;
};

}  // namespace tarvo
