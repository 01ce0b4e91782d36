#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarvo {

/// A socket handle; values of 0 and below are none.
using SocketHandle = std::intptr_t;
inline constexpr SocketHandle kNoSocket = -1;

/// A buffer for a WSAPROTOCOL_INFO record: the wide form fills its 628 bytes, the ANSI form the
/// first 372, in 32-bit and 64-bit builds alike. Every number stands at the same place in both.
using ProtocolRecord = std::array<std::uint8_t, 628>;

/// The bytes of a sockaddr_in.
using SocketAddress = std::array<std::uint8_t, 16>;

/// The sockets library: Winsock's own calls, one for one.
class Sockets {
 public:
  virtual ~Sockets() = default;
  /// WSAStartup with this version word (0x0202 is 2.2). 0, or the Winsock error number.
  virtual int Start(std::uint16_t version) = 0;
  virtual void Stop() = 0;
  virtual SocketHandle Create(int addressFamily, int type, int protocol) = 0;
  virtual void Close(SocketHandle socket) = 0;
  /// getsockopt; nothing when it failed.
  virtual std::optional<ProtocolRecord> ReadOption(SocketHandle socket, int level, int option) = 0;
  /// inet_addr: the address in network order, or 0xFFFFFFFF for what is no dotted address.
  virtual std::uint32_t DottedAddress(const std::string& host) = 0;
  /// gethostbyname: the bytes of the first address; nothing when the name is not found.
  virtual std::optional<std::vector<std::uint8_t>> FirstAddressOf(const std::string& host) = 0;
  /// connect, blocking: 0, or another number when it failed.
  virtual int ConnectTo(SocketHandle socket, const SocketAddress& address) = 0;
};

}  // namespace tarvo
