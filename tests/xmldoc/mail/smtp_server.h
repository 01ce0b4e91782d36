#pragma once

#include <string>

namespace tarvo {

/// A mail server of Debian's python3-aiosmtpd on this machine (smtp_server.py), running for as long
/// as this object lives.
class SmtpServer {
 public:
  SmtpServer(const std::string& mode, const std::string& step);
  ~SmtpServer();
  SmtpServer(const SmtpServer&) = delete;
  SmtpServer& operator=(const SmtpServer&) = delete;

  int Port() const { return port_; }
  /// The next thing that it tells: a mail that it took, as one line of JSON, or "QUIT". Waits for
  /// it.
  std::string NextEvent();

 private:
  std::string ReadLine();

  int process_ = -1;
  int toServer_ = -1;
  int fromServer_ = -1;
  int port_ = 0;
};

}  // namespace tarvo
