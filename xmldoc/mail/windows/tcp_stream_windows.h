#pragma once

#include "xmldoc/mail/tcp_stream.h"

namespace tarvo {

/// Asks for the addresses of a machine, as numbers, however long that takes; none for a name that
/// is unknown. Called on a thread of its own, with Winsock started.
using NameService = std::vector<std::string>(const std::string& host);

/// The name service of the system.
std::vector<std::string> SystemNameService(const std::string& host);

/// Winsock 2.2, started for as long as this lives.
class WinsockUse {
 public:
  WinsockUse();
  ~WinsockUse();
  WinsockUse(const WinsockUse&) = delete;
  WinsockUse& operator=(const WinsockUse&) = delete;

 private:
  bool started_;
};

/// Connections by Winsock, without blocking. A name service that takes longer than it is given is
/// left to its thread, which ends when it answers.
class WindowsTcpConnector : public TcpConnector {
 public:
  explicit WindowsTcpConnector(NameService& service = SystemNameService) : service_(service) {}

  std::vector<std::string> AddressesOf(const std::string& host, std::uint32_t milliseconds,
                                       StreamOutcome& outcome) override;
  std::unique_ptr<TcpStream> Connect(const std::string& address, int port,
                                     std::uint32_t milliseconds, StreamOutcome& outcome) override;

 private:
  NameService& service_;
  const WinsockUse winsock_;
};

}  // namespace tarvo
