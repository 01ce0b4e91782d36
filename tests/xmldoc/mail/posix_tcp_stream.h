#pragma once

#include "platform/clock.h"
#include "xmldoc/mail/tcp_stream.h"

namespace tarvo {

/// Connections of the system that the tests run on.
class PosixTcpConnector : public TcpConnector {
 public:
  std::vector<std::string> AddressesOf(const std::string& host, std::uint32_t milliseconds,
                                       StreamOutcome& outcome) override;
  std::unique_ptr<TcpStream> Connect(const std::string& address, int port,
                                     std::uint32_t milliseconds, StreamOutcome& outcome) override;
};

class PosixTickClock : public TickClock {
 public:
  std::uint32_t Milliseconds() override;
  void Pause(std::uint32_t milliseconds) override;
};

}  // namespace tarvo
