#include "xmldoc/mail/windows/tcp_stream_windows.h"

#include <winsock2.h>
#include <ws2tcpip.h>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

#include "platform/windows/handle_windows.h"
#include "platform/windows/late_answer.h"
#include "platform/windows/socket_wait.h"

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

/// Why a wait did not bring the socket's turn.
StreamOutcome OutcomeOf(WaitResult result) {
  return result == WaitResult::TimedOut ? StreamOutcome::TimedOut : StreamOutcome::Failed;
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
      const WaitResult turn = AwaitSocket(socket_.Get(), WaitFor::Writing, left.Milliseconds());
      if (turn != WaitResult::Ready) return OutcomeOf(turn);
      const std::size_t most = std::numeric_limits<int>::max();
      const int part = static_cast<int>(std::min(bytes.size(), most));
      const int sent = send(socket_.Get(), bytes.data(), part, 0);
      if (sent < 0 && WSAGetLastError() != WSAEWOULDBLOCK) return OutcomeOfError();
      if (sent > 0) bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return StreamOutcome::Done;
  }

  StreamOutcome Receive(std::string& bytes, std::uint32_t milliseconds) override {
    const WaitResult turn = AwaitSocket(socket_.Get(), WaitFor::Reading, milliseconds);
    if (turn != WaitResult::Ready) return OutcomeOf(turn);
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

using AddressList = std::unique_ptr<addrinfo, void(WSAAPI*)(addrinfo*)>;

AddressList ListOf(const std::string& host, const char* port, int flags) {
  addrinfo wanted{};
  wanted.ai_flags = flags;
  wanted.ai_socktype = SOCK_STREAM;
  wanted.ai_protocol = IPPROTO_TCP;
  addrinfo* found = nullptr;
  if (getaddrinfo(host.c_str(), port, &wanted, &found) != 0) found = nullptr;
  return {found, freeaddrinfo};
}

}  // namespace

std::vector<std::string> SystemNameService(const std::string& host) {
  const AddressList found = ListOf(host, nullptr, 0);
  std::vector<std::string> addresses;
  for (const addrinfo* one = found.get(); one != nullptr; one = one->ai_next) {
    std::array<char, NI_MAXHOST> text;
    if (getnameinfo(one->ai_addr, static_cast<socklen_t>(one->ai_addrlen), text.data(),
                    static_cast<DWORD>(text.size()), nullptr, 0, NI_NUMERICHOST) == 0) {
      addresses.emplace_back(text.data());
    }
  }
  return addresses;
}

WinsockUse::WinsockUse() {
  WSADATA data{};
  started_ = WSAStartup(MAKEWORD(2, 2), &data) == 0;
}

WinsockUse::~WinsockUse() {
  if (started_) WSACleanup();
}

std::vector<std::string> WindowsTcpConnector::AddressesOf(const std::string& host,
                                                          std::uint32_t milliseconds,
                                                          StreamOutcome& outcome) {
  LateAnswer<std::vector<std::string>> answer([service = &service_, host] {
    const WinsockUse winsock;  // whoever asked may be gone, and have ended it
    return service(host);
  });
  outcome = StreamOutcome::Failed;
  if (!answer.Asked()) return {};
  if (!answer.CameWithin(milliseconds)) {
    outcome = StreamOutcome::TimedOut;
    return {};
  }
  if (!answer.Value().empty()) outcome = StreamOutcome::Done;
  return std::move(answer.Value());
}

std::unique_ptr<TcpStream> WindowsTcpConnector::Connect(const std::string& address, int port,
                                                        std::uint32_t milliseconds,
                                                        StreamOutcome& outcome) {
  outcome = StreamOutcome::Failed;
  const AddressList found = ListOf(address, std::to_string(port).c_str(), AI_NUMERICHOST);
  if (found == nullptr) return nullptr;
  UniqueSocket made(socket(found->ai_family, found->ai_socktype, found->ai_protocol));
  if (!made.Valid()) return nullptr;
  const std::optional<int> error =
      ConnectWithin(made.Get(), *found->ai_addr, static_cast<int>(found->ai_addrlen), milliseconds);
  if (!error) outcome = StreamOutcome::TimedOut;
  if (error != 0) return nullptr;
  outcome = StreamOutcome::Done;
  return std::make_unique<WindowsTcpStream>(std::move(made));
}

}  // namespace tarvo
