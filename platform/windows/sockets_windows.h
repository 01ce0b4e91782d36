#pragma once

#include "platform/sockets.h"

namespace tarvo {

/// Winsock 2, call for call.
class WindowsSockets : public Sockets {
 public:
  int Start(std::uint16_t version) override;
  void Stop() override;
  SocketHandle Create(int addressFamily, int type, int protocol) override;
  void Close(SocketHandle socket) override;
  std::optional<ProtocolRecord> ReadOption(SocketHandle socket, int level, int option) override;
  std::uint32_t DottedAddress(const std::string& host) override;
  /// The empty name, which Winsock takes for this machine, is not found.
  std::optional<std::vector<std::uint8_t>> FirstAddressOf(const std::string& host) override;
  int ConnectTo(SocketHandle socket, const SocketAddress& address) override;
};

}  // namespace tarvo
