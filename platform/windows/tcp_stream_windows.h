#pragma once

#include "platform/tcp_stream.h"

namespace tarvo {

/// Winsock 2, without blocking. It starts the library for itself. Looking a name up takes the time
/// that the system's name service takes; the time given is for what follows.
class WindowsTcpConnector : public TcpConnector {
 public:
  WindowsTcpConnector();
  ~WindowsTcpConnector() override;
  WindowsTcpConnector(const WindowsTcpConnector&) = delete;
  WindowsTcpConnector& operator=(const WindowsTcpConnector&) = delete;

  std::unique_ptr<TcpStream> Connect(const std::string& host, int port, std::uint32_t milliseconds,
                                     StreamOutcome& outcome) override;

 private:
  bool started_ = false;
};

}  // namespace tarvo
