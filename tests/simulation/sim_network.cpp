#include "tests/simulation/sim_network.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "support/text.h"

namespace tarvo {
namespace {

constexpr std::uint32_t kNoAddressNumber = 0xFFFFFFFF;
constexpr int kCannotAssignAddress = 10049;
constexpr std::uint32_t kSystemsPatience = 21000;
constexpr std::uint32_t kRepeatsOfARefusal = 2000;
constexpr std::size_t kFamilyOffset = 76;  // iAddressFamily of WSAPROTOCOL_INFO.

std::uint32_t InNetworkOrder(const std::vector<std::uint8_t>& bytes) {
  std::uint32_t address = 0;
  std::memcpy(&address, bytes.data(), sizeof address);
  return address;
}

/// The four bytes of "a.b.c.d"; nothing for anything else.
std::optional<std::vector<std::uint8_t>> FourBytes(std::string_view text) {
  std::vector<std::uint8_t> bytes;
  for (int part = 0; part < 4; ++part) {
    unsigned value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc() || value > 255) return std::nullopt;
    bytes.push_back(static_cast<std::uint8_t>(value));
    text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
    if (part < 3 && (text.empty() || text.front() != '.')) return std::nullopt;
    if (part < 3) text.remove_prefix(1);
  }
  if (!text.empty()) return std::nullopt;
  return bytes;
}

ProtocolRecord TcpRecord() {
  ProtocolRecord record{};
  record[kFamilyOffset] = 2;
  return record;
}

}  // namespace

int SimNetwork::Start(std::uint16_t version) {
  recorder_.Note("sockets.start(" + std::to_string(version) + ")");
  startedVersion_ = version;
  ++starts_;
  return startCode_;
}

void SimNetwork::Stop() {
  recorder_.Note("sockets.stop()");
  ++stops_;
}

SocketHandle SimNetwork::Create(int addressFamily, int type, int protocol) {
  recorder_.Note("sockets.create(" + std::to_string(addressFamily) + ", " + std::to_string(type) +
                 ", " + std::to_string(protocol) + ")");
  if (refuseSockets_) return kNoSocket;
  open_.insert(++lastSocket_);
  return lastSocket_;
}

void SimNetwork::Close(SocketHandle socket) {
  recorder_.Note("sockets.close(" + std::to_string(socket) + ")");
  open_.erase(socket);
  sendingOnce_.erase(socket);
}

std::optional<ProtocolRecord> SimNetwork::ReadOption(SocketHandle socket, int level, int option) {
  recorder_.Note("sockets.option(" + std::to_string(level) + ", " + std::to_string(option) + ")");
  if (hideRecord_ || !open_.contains(socket)) return std::nullopt;
  return record_.value_or(TcpRecord());
}

std::uint32_t SimNetwork::DottedAddress(const std::string& host) {
  recorder_.Note("sockets.dotted(" + host + ")");
  if (host == " ") return 0;  // As Winsock has it.
  const auto bytes = FourBytes(host);
  return bytes ? InNetworkOrder(*bytes) : kNoAddressNumber;
}

std::optional<std::vector<std::uint8_t>> SimNetwork::KnownHere(const std::string& host) const {
  if (host.empty()) return std::vector<std::uint8_t>{127, 0, 0, 1};  // As Winsock has it.
  const auto known = hosts_.find(LowerCase(host));
  if (known != hosts_.end()) return known->second;
  const auto bytes = FourBytes(host);
  if (bytes && InNetworkOrder(*bytes) == kNoAddressNumber) return std::nullopt;
  return bytes;
}

SimNetwork::Question SimNetwork::Ask(const std::string& name) const {
  Question question;
  question.answeredAt = clock_.Age() + std::min(nameServerDelay_, kDeadNameServer);
  const auto served = servedNames_.find(LowerCase(name));
  const bool answered = nameServerDelay_ < kDeadNameServer;
  if (answered && served != servedNames_.end()) question.address = served->second;
  return question;
}

HostAnswer SimNetwork::FirstAddressOf(const std::string& host, std::uint32_t milliseconds) {
  recorder_.Note("sockets.name(" + host + ")");
  if (const auto known = KnownHere(host)) return {LookUp::Found, *known};
  auto open = questions_.find(host);
  const bool gaveUp = open != questions_.end() && open->second.address.empty() &&
                      open->second.answeredAt <= clock_.Age();
  if (open == questions_.end() || gaveUp) {
    recorder_.Note("sockets.ask(" + host + ")");
    open = questions_.insert_or_assign(host, Ask(host)).first;
  }
  const std::uint64_t now = clock_.Age();
  const std::uint64_t answeredAt = open->second.answeredAt;
  if (!Wait(answeredAt > now ? answeredAt - now : 0, milliseconds)) {
    open->second.waitedFor = true;
    return {};
  }
  const Question question = open->second;
  questions_.erase(open);
  if (!question.address.empty()) return {LookUp::Found, question.address};
  return {question.waitedFor ? LookUp::NotAnswered : LookUp::Unknown, {}};
}

bool SimNetwork::SendFirstPacketOnce(SocketHandle socket) {
  recorder_.Note("sockets.once(" + std::to_string(socket) + ")");
  if (repeatsAlways_ || !open_.contains(socket)) return false;
  sendingOnce_.insert(socket);
  return true;
}

bool SimNetwork::Wait(std::uint64_t needed, std::uint32_t given) {
  const bool inTime = patient_ || needed <= given;
  const std::uint64_t wait = inTime ? needed : given;
  clock_.Advance(wait);
  waited_ += wait;
  return inTime;
}

int SimNetwork::ConnectTo(SocketHandle socket, const SocketAddress& address,
                          std::uint32_t milliseconds) {
  recorder_.Note("sockets.connect()");
  if (keepConnects_) connects_.push_back(address);
  if (!open_.contains(socket) || address[0] != 2 || address[1] != 0) return kCannotAssignAddress;
  switch (AnswerFor(address)) {
    case PortAnswer::Listens:
      return 0;
    case PortAnswer::Refuses:
      return Wait(sendingOnce_.contains(socket) ? 0 : kRepeatsOfARefusal, milliseconds)
                 ? kConnectRefused
                 : kConnectTimedOut;
    case PortAnswer::TimesOut:
    case PortAnswer::NobodyAccepts:
      break;
  }
  Wait(kSystemsPatience, milliseconds);
  return kConnectTimedOut;
}

PortAnswer SimNetwork::AnswerFor(const SocketAddress& address) {
  const auto port = static_cast<std::uint16_t>(address[2] << 8 | address[3]);
  std::uint32_t ip = 0;
  std::memcpy(&ip, address.data() + 4, sizeof ip);
  return ip == InNetworkOrder({127, 0, 0, 1}) ? processes_.AnswerAt(port) : PortAnswer::TimesOut;
}

void SimNetwork::AddHost(const std::string& name, std::vector<std::uint8_t> address) {
  hosts_[LowerCase(name)] = std::move(address);
}

void SimNetwork::AddServedName(const std::string& name, std::vector<std::uint8_t> address) {
  servedNames_[LowerCase(name)] = std::move(address);
}

}  // namespace tarvo
