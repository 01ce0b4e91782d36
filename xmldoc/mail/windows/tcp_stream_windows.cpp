#include "xmldoc/mail/windows/tcp_stream_windows.h"

#include <winsock2.h>
#include <ws2tcpip.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <exception>
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

StreamOutcome ConnectTo(const addrinfo& address, std::uint32_t milliseconds, UniqueSocket& made) {
  UniqueSocket fresh(socket(address.ai_family, address.ai_socktype, address.ai_protocol));
  u_long nonBlocking = 1;
  if (!fresh.Valid() || ioctlsocket(fresh.Get(), kNonBlockingMode, &nonBlocking) != 0) {
    return StreamOutcome::Failed;
  }
  if (connect(fresh.Get(), address.ai_addr, static_cast<int>(address.ai_addrlen)) != 0) {
    if (WSAGetLastError() != WSAEWOULDBLOCK) return StreamOutcome::Failed;
    const StreamOutcome ready = Wait(fresh.Get(), WaitFor::Writing, milliseconds);
    if (ready != StreamOutcome::Done) return ready;
    int error = 0;
    int size = sizeof error;
    getsockopt(fresh.Get(), SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &size);
    if (error != 0) return StreamOutcome::Failed;
  }
  made = std::move(fresh);
  return StreamOutcome::Done;
}

bool StartWinsock() {
  WSADATA data{};
  return WSAStartup(MAKEWORD(2, 2), &data) == 0;
}

/// A question to the name service, which cannot be called back. It is put on a thread of its own,
/// and belongs to both: the one that leaves last frees it.
struct Question {
  NameService* service;
  std::string host;
  std::vector<std::string> addresses;
  std::atomic<bool> oneHasLeft{false};
};

DWORD WINAPI Answer(void* given) {
  auto* question = static_cast<Question*>(given);
  const bool started = StartWinsock();  // whoever asked may be gone, and have ended it
  try {
    question->addresses = question->service(question->host);
  } catch (const std::exception&) {
    question->addresses.clear();
  }
  if (started) WSACleanup();
  if (question->oneHasLeft.exchange(true)) delete question;
  return 0;
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

WindowsTcpConnector::WindowsTcpConnector(NameService& service)
    : service_(service), started_(StartWinsock()) {}

WindowsTcpConnector::~WindowsTcpConnector() {
  if (started_) WSACleanup();
}

std::vector<std::string> WindowsTcpConnector::AddressesOf(const std::string& host,
                                                          std::uint32_t milliseconds,
                                                          StreamOutcome& outcome) {
  outcome = StreamOutcome::Failed;
  auto question = std::make_unique<Question>();
  question->service = &service_;
  question->host = host;
  const KernelHandle thread(CreateThread(nullptr, 0, &Answer, question.get(), 0, nullptr));
  if (!thread.Valid()) return {};
  Question* shared = question.release();
  WaitForSingleObject(thread.Get(), milliseconds);
  if (!shared->oneHasLeft.exchange(true)) {
    outcome = StreamOutcome::TimedOut;
    return {};
  }
  question.reset(shared);
  outcome = question->addresses.empty() ? StreamOutcome::Failed : StreamOutcome::Done;
  return std::move(question->addresses);
}

std::unique_ptr<TcpStream> WindowsTcpConnector::Connect(const std::string& address, int port,
                                                        std::uint32_t milliseconds,
                                                        StreamOutcome& outcome) {
  outcome = StreamOutcome::Failed;
  const AddressList found = ListOf(address, std::to_string(port).c_str(), AI_NUMERICHOST);
  if (found == nullptr) return nullptr;
  UniqueSocket made;
  outcome = ConnectTo(*found, milliseconds, made);
  if (outcome != StreamOutcome::Done) return nullptr;
  return std::make_unique<WindowsTcpStream>(std::move(made));
}

}  // namespace tarvo
