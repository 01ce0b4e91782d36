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
/// first 372, in 32-bit and 64-bit builds alike. Every number is at the same place in both.
using ProtocolRecord = std::array<std::uint8_t, 628>;

/// The bytes of a sockaddr_in.
using SocketAddress = std::array<std::uint8_t, 16>;

/// How a question for a name's address ended.
enum class LookUp {
  Found,
  Unknown,      ///< The system says that there is no such name.
  NotAnswered,  ///< Not in the time given.
};

struct HostAnswer {
  LookUp outcome = LookUp::NotAnswered;
  std::vector<std::uint8_t> address;  ///< The bytes of the first address, when one was found.
};

/// Numbers of Winsock errors that a connect ends with.
inline constexpr int kConnectTimedOut = 10060;
inline constexpr int kConnectRefused = 10061;

/// The sockets library: Winsock's own calls. Those that wait for another machine take the
/// milliseconds that they may wait; meanwhile no message and no timer of the program is handled.
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
  /// gethostbyname, waited for that long at most. A question without an answer stays open: asked
  /// for the same name again, its answer is waited for, and no second question put beside it. An
  /// address that comes after the wait answers the next question for that name; a failure that
  /// comes so late is the system's giving up, and answers nothing.
  virtual HostAnswer FirstAddressOf(const std::string& host, std::uint32_t milliseconds) = 0;
  /// Before a connect: its first packet shall be sent once, so that a closed port is refused at
  /// once and not after repeats. False where the system has no such option.
  virtual bool SendFirstPacketOnce(SocketHandle socket) = 0;
  /// connect, waited for that long at most: 0, or the number of the Winsock error,
  /// `kConnectTimedOut` when the time has ended it. The socket can then be closed and nothing else.
  virtual int ConnectTo(SocketHandle socket, const SocketAddress& address,
                        std::uint32_t milliseconds) = 0;
};

}  // namespace tarvo
