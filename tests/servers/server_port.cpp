#include "tests/servers/server_port.h"

namespace tarvo::sample {
namespace {

constexpr int kUsualBacklog = 50;
constexpr int kShortestBacklog = 0;
constexpr std::size_t kMostWaiting = 64;
constexpr long kJoinMicroseconds = 200'000;

sockaddr_in Loopback(unsigned short port) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_port = htons(port);
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  return address;
}

bool ConnectedSoon(SOCKET socket) {
  fd_set writable;
  writable.fd_count = 1;
  writable.fd_array[0] = socket;
  timeval limit{0, kJoinMicroseconds};
  return select(0, nullptr, &writable, nullptr, &limit) == 1;
}

}  // namespace

bool ServerPort::Listen(int backlog) {
  Close();
  listener_ = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  const sockaddr_in address = Loopback(port_);
  const bool listening =
      bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0 &&
      listen(listener_, backlog) == 0;
  if (!listening) Close();
  return listening;
}

bool ServerPort::Answer() {
  if (state_ == PortState::Answering) return true;
  if (!Listen(kUsualBacklog)) return false;
  WSAAsyncSelect(listener_, window_, accepted_, FD_ACCEPT);
  state_ = PortState::Answering;
  return true;
}

void ServerPort::Close() {
  for (const SOCKET one : waiting_) closesocket(one);
  waiting_.clear();
  if (listener_ != INVALID_SOCKET) closesocket(listener_);
  listener_ = INVALID_SOCKET;
  state_ = PortState::Closed;
}

bool ServerPort::Hang() {
  if (!Listen(kShortestBacklog)) return false;
  while (waiting_.size() < kMostWaiting && JoinOwnQueue()) {
  }
  state_ = PortState::Hanging;
  return true;
}

bool ServerPort::JoinOwnQueue() {
  const SOCKET caller = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  u_long nonBlocking = 1;
  ioctlsocket(caller, static_cast<long>(FIONBIO), &nonBlocking);
  const sockaddr_in address = Loopback(port_);
  connect(caller, reinterpret_cast<const sockaddr*>(&address), sizeof(address));
  if (ConnectedSoon(caller)) {
    waiting_.push_back(caller);
    return true;
  }
  closesocket(caller);
  return false;
}

void ServerPort::Accept() {
  const SOCKET caller = accept(listener_, nullptr, nullptr);
  if (caller == INVALID_SOCKET) return;
  // Reset, not closed: a port in the state of waiting could not be bound again after a crash.
  const linger reset{1, 0};
  setsockopt(caller, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&reset), sizeof(reset));
  closesocket(caller);
}

}  // namespace tarvo::sample
