#include <winsock2.h>

#include "tests/windows/http_server.h"

namespace tarvo::test {

HttpServer::HttpServer(Script script)
    : script_(std::move(script)),
      listener_(socket(AF_INET, SOCK_STREAM, IPPROTO_TCP)),
      ending_(CreateEventA(nullptr, TRUE, FALSE, nullptr)) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  int size = sizeof address;
  bind(listener_, reinterpret_cast<sockaddr*>(&address), size);
  listen(listener_, 5);
  getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &size);
  port_ = ntohs(address.sin_port);
  thread_.Reset(CreateThread(nullptr, 0, &HttpServer::Run, this, 0, nullptr));
}

HttpServer::~HttpServer() {
  SetEvent(ending_.Get());
  WaitForSingleObject(thread_.Get(), INFINITE);
  closesocket(listener_);
}

bool HttpServer::WaitForEnd(unsigned milliseconds) const {
  return WaitForSingleObject(ending_.Get(), milliseconds) == WAIT_OBJECT_0;
}

DWORD WINAPI HttpServer::Run(void* self) {
  static_cast<HttpServer*>(self)->Serve();
  return 0;
}

void HttpServer::Serve() {
  while (!WaitForEnd(0)) {
    fd_set ready;
    FD_ZERO(&ready);
    FD_SET(listener_, &ready);
    timeval aWhile{0, 20000};
    if (select(0, &ready, nullptr, nullptr, &aWhile) <= 0) continue;
    const SOCKET connection = accept(listener_, nullptr, nullptr);
    if (connection == INVALID_SOCKET) continue;
    Answer(connection);
    closesocket(connection);
  }
}

void HttpServer::Answer(std::uintptr_t connection) {
  std::string head;
  while (head.find("\r\n\r\n") == std::string::npos) {
    char part[4096];
    const int got = recv(connection, part, sizeof part, 0);
    if (got <= 0) return;
    head.append(part, static_cast<std::size_t>(got));
    if (head[0] != 'G') return;  // not HTTP: who wants a secure connection gets none
  }
  heads_.push_back(head);
  const std::string answer = script_(head);
  std::size_t sent = 0;
  while (sent < answer.size()) {
    const int part =
        send(connection, answer.data() + sent, static_cast<int>(answer.size() - sent), 0);
    if (part <= 0) return;
    sent += static_cast<std::size_t>(part);
  }
  shutdown(connection, SD_SEND);
}

std::string Ok(const std::string& body) {
  return "HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nConnection: close\r\nContent-Length: " +
         std::to_string(body.size()) + "\r\n\r\n" + body;
}

}  // namespace tarvo::test
