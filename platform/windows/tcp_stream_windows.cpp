#include "platform/windows/tcp_stream_windows.h"

#include <winsock2.h>
#include <ws2tcpip.h>

#include <algorithm>
#include <array>
#include <limits>

#include "platform/windows/handle_windows.h"

namespace tarvo {
namespace {

struct SocketTraits {
  using Value = SOCKET;
  static bool IsNone(Value value) { return value == 0 || value == INVALID_SOCKET; }
  static void Close(Value value) { closesocket(value); }
};
using UniqueSocket = UniqueHandle<SocketTraits>;

/// What is left of the time that a call was given. GetTickCount wraps; differences do not mind.
class TimeLeft {
 public:
  explicit TimeLeft(std::uint32_t milliseconds) : start_(GetTickCount()), given_(milliseconds) {}
  std::uint32_t Milliseconds() const {
    const DWORD passed = GetTickCount() - start_;
    return passed >= given_ ? 0 : given_ - passed;
  }

 private:
  DWORD start_;
  std::uint32_t given_;
};

// FIONBIO as the call takes it.
constexpr long kNonBlockingMode = static_cast<long>(FIONBIO);

enum class WaitFor { Reading, Writing };

StreamOutcome Wait(SOCKET socket, WaitFor what, std::uint32_t milliseconds) {
  fd_set ready;
  FD_ZERO(&ready);
  ready.fd_count = 1;
  ready.fd_array[0] = socket;
  fd_set failed = ready;
  timeval time{};
  time.tv_sec = static_cast<long>(milliseconds / 1000);
  time.tv_usec = static_cast<long>(milliseconds % 1000) * 1000;
  const int count = select(0, what == WaitFor::Reading ? &ready : nullptr,
                           what == WaitFor::Writing ? &ready : nullptr, &failed, &time);
  if (count == 0) return StreamOutcome::TimedOut;
  // A connection that is refused shows as failed, not as ready.
  return count > 0 && failed.fd_count == 0 ? StreamOutcome::Done : StreamOutcome::Failed;
}

StreamOutcome OutcomeOfError() {
  const int error = WSAGetLastError();
  const bool closed = error == WSAECONNRESET || error == WSAECONNABORTED;
  return closed ? StreamOutcome::Closed : StreamOutcome::Failed;
}

class WindowsTcpStream : public TcpStream {
 public:
  explicit WindowsTcpStream(UniqueSocket socket) : socket_(std::move(socket)) {}

  StreamOutcome Send(std::string_view bytes, std::uint32_t milliseconds) override {
    const TimeLeft left(milliseconds);
    while (!bytes.empty()) {
      const StreamOutcome ready = Wait(socket_.Get(), WaitFor::Writing, left.Milliseconds());
      if (ready != StreamOutcome::Done) return ready;
      const std::size_t most = std::numeric_limits<int>::max();
      const int part = static_cast<int>(std::min(bytes.size(), most));
      const int sent = send(socket_.Get(), bytes.data(), part, 0);
      if (sent < 0 && WSAGetLastError() != WSAEWOULDBLOCK) return OutcomeOfError();
      if (sent > 0) bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return StreamOutcome::Done;
  }

  StreamOutcome Receive(std::string& bytes, std::uint32_t milliseconds) override {
    const StreamOutcome ready = Wait(socket_.Get(), WaitFor::Reading, milliseconds);
    if (ready != StreamOutcome::Done) return ready;
    std::array<char, 4096> part;
    const int got = recv(socket_.Get(), part.data(), static_cast<int>(part.size()), 0);
    if (got == 0) return StreamOutcome::Closed;
    if (got < 0) return OutcomeOfError();
    bytes.append(part.data(), static_cast<std::size_t>(got));
    return StreamOutcome::Done;
  }

 private:
  UniqueSocket socket_;
};

StreamOutcome ConnectTo(const addrinfo& address, const TimeLeft& left, UniqueSocket& made) {
  UniqueSocket fresh(socket(address.ai_family, address.ai_socktype, address.ai_protocol));
  u_long nonBlocking = 1;
  if (!fresh.Valid() || ioctlsocket(fresh.Get(), kNonBlockingMode, &nonBlocking) != 0) {
    return StreamOutcome::Failed;
  }
  if (connect(fresh.Get(), address.ai_addr, static_cast<int>(address.ai_addrlen)) != 0) {
    if (WSAGetLastError() != WSAEWOULDBLOCK) return StreamOutcome::Failed;
    const StreamOutcome ready = Wait(fresh.Get(), WaitFor::Writing, left.Milliseconds());
    if (ready != StreamOutcome::Done) return ready;
    int error = 0;
    int size = sizeof error;
    getsockopt(fresh.Get(), SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &size);
    if (error != 0) return StreamOutcome::Failed;
  }
  made = std::move(fresh);
  return StreamOutcome::Done;
}

}  // namespace

WindowsTcpConnector::WindowsTcpConnector() {
  WSADATA data{};
  started_ = WSAStartup(MAKEWORD(2, 2), &data) == 0;
}

WindowsTcpConnector::~WindowsTcpConnector() {
  if (started_) WSACleanup();
}

std::unique_ptr<TcpStream> WindowsTcpConnector::Connect(const std::string& host, int port,
                                                        std::uint32_t milliseconds,
                                                        StreamOutcome& outcome) {
  outcome = StreamOutcome::Failed;
  addrinfo wanted{};
  wanted.ai_socktype = SOCK_STREAM;
  wanted.ai_protocol = IPPROTO_TCP;
  addrinfo* found = nullptr;
  if (getaddrinfo(host.c_str(), std::to_string(port).c_str(), &wanted, &found) != 0) return nullptr;
  const std::unique_ptr<addrinfo, void(WSAAPI*)(addrinfo*)> addresses(found, freeaddrinfo);
  const TimeLeft left(milliseconds);
  UniqueSocket made;
  for (const addrinfo* one = found; one != nullptr; one = one->ai_next) {
    outcome = ConnectTo(*one, left, made);
    if (outcome == StreamOutcome::Done) return std::make_unique<WindowsTcpStream>(std::move(made));
  }
  return nullptr;
}

}  // namespace tarvo
