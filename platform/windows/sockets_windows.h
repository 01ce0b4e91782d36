#pragma once

#include "platform/sockets.h"
#include "platform/windows/name_look_ups.h"

namespace tarvo {

/// Winsock 2. What waits is not left to the system's own patience, which is minutes.
class WindowsSockets : public Sockets {
 public:
  int Start(std::uint16_t version) override;
  void Stop() override;
  SocketHandle Create(int addressFamily, int type, int protocol) override;
  void Close(SocketHandle socket) override;
  std::optional<ProtocolRecord> ReadOption(SocketHandle socket, int level, int option) override;
  std::uint32_t DottedAddress(const std::string& host) override;
  /// The empty name, which Winsock takes for this machine, is not found.
  HostAnswer FirstAddressOf(const std::string& host, std::uint32_t milliseconds) override;
  /// SIO_TCP_INITIAL_RTO: no repeat, or where the system knows no such number, a single one. True
  /// when it took one of the two.
  bool SendFirstPacketOnce(SocketHandle socket) override;
  /// See `ConnectWithin`; the socket blocks again afterwards.
  int ConnectTo(SocketHandle socket, const SocketAddress& address,
                std::uint32_t milliseconds) override;

 private:
  NameLookUps lookUps_;
};

}  // namespace tarvo
