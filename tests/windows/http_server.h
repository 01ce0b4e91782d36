#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <vector>

#include "platform/windows/handle_windows.h"

namespace tarvo::test {

/// A real HTTP server on a port of its own of the loopback address, on a thread of its own: it
/// takes one connection after the other, reads the request's head, sends what the script answers
/// and closes. Winsock has to be started before, and stay so while it lives.
class HttpServer {
 public:
  /// From the request's head to all bytes of the answer. Runs on the server's thread.
  using Script = std::function<std::string(const std::string& head)>;

  explicit HttpServer(Script script);
  ~HttpServer();
  HttpServer(const HttpServer&) = delete;
  HttpServer& operator=(const HttpServer&) = delete;

  int Port() const { return port_; }
  std::string Url(const std::string& path) const {
    return "http://127.0.0.1:" + std::to_string(port_) + path;
  }
  /// The heads of the requests so far. To be asked when no request is under way.
  const std::vector<std::string>& Heads() const { return heads_; }
  /// For a script that answers too late: true when the server is to end, false after this time.
  bool WaitForEnd(unsigned milliseconds) const;

 private:
  static DWORD WINAPI Run(void* self);
  void Serve();
  void Answer(std::uintptr_t connection);

  Script script_;
  std::uintptr_t listener_;
  int port_ = 0;
  std::vector<std::string> heads_;
  KernelHandle ending_;
  KernelHandle thread_;
};

/// An answer of status 200 with this body and its length.
std::string Ok(const std::string& body);

}  // namespace tarvo::test
