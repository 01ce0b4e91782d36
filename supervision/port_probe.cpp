#include "supervision/port_probe.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "supervision/probe_failure.h"
#include "support/runtime_error.h"
#include "support/text.h"

namespace tarvo {
namespace {

constexpr int kAnyFamily = 0;
constexpr int kStreamSocket = 1;
constexpr int kTcp = 6;
constexpr int kNotConnected = -1;

/// A sockaddr_in: family as the machine keeps it, port and address in network order.
SocketAddress AddressOf(std::int32_t family, std::int16_t port, std::uint32_t address) {
  SocketAddress bytes{};
  const auto familyBits = static_cast<std::uint16_t>(family);
  const auto portBits = static_cast<std::uint16_t>(port);
  std::memcpy(bytes.data(), &familyBits, sizeof familyBits);
  bytes[2] = static_cast<std::uint8_t>(portBits >> 8);
  bytes[3] = static_cast<std::uint8_t>(portBits & 0xFF);
  std::memcpy(bytes.data() + 4, &address, sizeof address);
  return bytes;
}

constexpr int kSocketLevel = 0xFFFF;         // SOL_SOCKET
constexpr int kProtocolInfoOption = 0x2004;  // SO_PROTOCOL_INFOA

// The same in 32-bit and 64-bit programs: the structure holds no pointer.
constexpr std::size_t kAddressFamilyOffset = 76;

}  // namespace

std::int16_t PortToShort(std::int32_t port) {
  if (port < 0 || port > std::numeric_limits<std::uint16_t>::max()) {
    throw RuntimeError(Fault::Overflow, "PortToShort");
  }
  return static_cast<std::int16_t>(static_cast<std::uint16_t>(port));
}

bool PortProbe::IsPortListening(const std::string& host, std::int32_t port) {
  const SocketHandle socket = CreateTcpSocket();
  const int result = ConnectSocket(socket, host, port);
  sockets_.Close(socket);
  return result == 0;
}

SocketHandle PortProbe::CreateTcpSocket() {
  return sockets_.Create(kAnyFamily, kStreamSocket, kTcp);
}

std::uint32_t PortProbe::ResolveHostAddress(const std::string& host) {
  const std::string name(Trimmed(host));
  // Winsock takes a blank for the address 0.0.0.0, and an empty name for this machine.
  if (name.empty()) {
    lastError_ = kNameUnknown;
    return kNoAddress;
  }
  std::uint32_t address = sockets_.DottedAddress(host);
  if (address == kNoAddress && name != host) address = sockets_.DottedAddress(name);
  return address != kNoAddress ? address : AddressOfName(name);
}

std::uint32_t PortProbe::AddressOfName(const std::string& name) {
  const HostAnswer answer = sockets_.FirstAddressOf(name, kNameWait);
  if (answer.outcome == LookUp::NotAnswered) {
    const auto last = lastAddresses_.find(name);
    if (last != lastAddresses_.end()) return last->second;
    lastError_ = kNameNotAnswered;
    return kNoAddress;
  }
  std::uint32_t address = answer.outcome == LookUp::Found ? 0 : kNoAddress;
  std::copy_n(answer.address.begin(), std::min(answer.address.size(), sizeof address),
              reinterpret_cast<std::uint8_t*>(&address));
  if (address == kNoAddress) {
    lastError_ = kNameUnknown;
  } else {
    lastAddresses_[name] = address;
  }
  return address;
}

int PortProbe::ConnectSocket(SocketHandle socket, const std::string& host, std::int32_t port) {
  if (socket <= 0) return Fail(kNoSocketMade);
  if (host.empty()) return Fail(kNameUnknown);
  if (port < 1) return Fail(kNoSuchPort);
  try {
    CProtocol protocol;
    protocol.GetBySocketHandle(sockets_, socket);
    const std::uint32_t address = ResolveHostAddress(host);
    if (address == kNoAddress) return kNotConnected;
    const SocketAddress whole = AddressOf(protocol.AddressFamily, PortToShort(port), address);
    sockets_.SendFirstPacketOnce(socket);  // Where the system cannot, the one second is the limit.
    lastError_ = sockets_.ConnectTo(socket, whole, kConnectWait);
    return lastError_;
  } catch (const RuntimeError&) {
    // A port that no socket can have is a server that does not listen, not a fault of the launcher.
    return Fail(kNoSuchPort);
  }
}

int PortProbe::Fail(int reason) {
  lastError_ = reason;
  return kNotConnected;
}

bool CProtocol::GetBySocketHandle(Sockets& sockets, SocketHandle socket) {
  const auto record = sockets.ReadOption(socket, kSocketLevel, kProtocolInfoOption);
  if (!record) return false;
  std::memcpy(&AddressFamily, record->data() + kAddressFamilyOffset, sizeof AddressFamily);
  return true;
}

}  // namespace tarvo
