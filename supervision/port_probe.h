#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "platform/sockets.h"

namespace tarvo {

/// The number of an address that could not be resolved.
inline constexpr std::uint32_t kNoAddress = 0xFFFFFFFF;

/// The 16 bits of a port as a signed number: 32768 to 65535 become negative. Raises overflow (6)
/// below 0 and above 65535.
std::int16_t PortToShort(std::int32_t port);

/// Milliseconds that a probe waits for a connect, and before it for the address of a name.
inline constexpr std::uint32_t kConnectWait = 1000;
inline constexpr std::uint32_t kNameWait = 1000;

/// Reports whether a server answers: a plain TCP connect to its host and port, closed at once,
/// nothing sent or read. The connect has one second: a server that has not answered by then does
/// not listen. The lookup of a name has another; if the name server exceeds it, the name's last
/// address is used. So a probe of a dotted address lasts one second at most, that of a name two.
/// Only the names' last addresses are kept.
class PortProbe {
 public:
  explicit PortProbe(Sockets& sockets) : sockets_(sockets) {}

  /// True when the connection succeeded. An unusable host or port counts as not listening.
  bool IsPortListening(const std::string& host, std::int32_t port);
  /// Why the last probe failed, for `ProbeFailureText`; 0 when it succeeded.
  int LastError() const { return lastError_; }

  /// A stream socket of no given address family, or -1.
  SocketHandle CreateTcpSocket();

  /// The IPv4 address in network order of a dotted address or a host name (blanks around either are
  /// ignored), or `kNoAddress`. A dotted address is not looked up. "255.255.255.255" counts as a
  /// name, and a blank host has no address.
  std::uint32_t ResolveHostAddress(const std::string& host);

  /// Connects; 0 on success, any other value on failure, -1 when it was not even tried.
  int ConnectSocket(SocketHandle socket, const std::string& host, std::int32_t port);

 private:
  std::uint32_t AddressOfName(const std::string& name);
  int Fail(int reason);

  Sockets& sockets_;
  std::map<std::string, std::uint32_t> lastAddresses_;  ///< The last one of each name.
  int lastError_ = 0;
};

/// What the probe reads of an entry of the sockets layer's protocol catalogue (Winsock's
/// WSAPROTOCOL_INFOA).
struct CProtocol {
  std::int32_t AddressFamily = 0;  ///< AF_*.

  /// Fills the record from an open socket. False, and nothing changed, when the sockets layer gives
  /// no entry.
  bool GetBySocketHandle(Sockets& sockets, SocketHandle socket);
};

}  // namespace tarvo
