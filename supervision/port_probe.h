#pragma once

#include <cstdint>
#include <string>

#include "platform/sockets.h"

namespace tarvo {

/// The number of an address that could not be resolved.
inline constexpr std::uint32_t kNoAddress = 0xFFFFFFFF;

/// The 16 bits of a port as a signed number: 32768 to 65535 become negative. Raises overflow (6)
/// below 0 and above 65535.
std::int16_t PortToShort(std::int32_t port);

/// Tells whether a server answers: a plain TCP connect to its host and port, closed at once,
/// nothing sent or read. The connect blocks as long as the system's own attempt lasts; no state is
/// kept.
class PortProbe {
 public:
  explicit PortProbe(Sockets& sockets) : sockets_(sockets) {}

  /// True when the connection succeeded. An unusable host or port is simply not listening.
  bool IsPortListening(const std::string& host, std::int32_t port);

  /// A stream socket of no given address family, or -1.
  SocketHandle CreateTcpSocket();

  /// The IPv4 address in network order of a dotted address or a host name (blanks around a name are
  /// ignored), or `kNoAddress`. "255.255.255.255" is taken for a name, and a blank host for none.
  std::uint32_t ResolveHostAddress(const std::string& host);

  /// Connects; 0 on success, any other value on failure, -1 when it was not even tried.
  int ConnectSocket(SocketHandle socket, const std::string& host, std::int32_t port);

 private:
  Sockets& sockets_;
};

}  // namespace tarvo
