#include "tests/xmldoc/mail/posix_tcp_stream.h"

#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <thread>
#include <utility>

namespace tarvo {
namespace {

class Socket {
 public:
  explicit Socket(int number = -1) : number_(number) {}
  Socket(Socket&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Socket& operator=(Socket&&) = delete;
  ~Socket() {
    if (number_ >= 0) close(number_);
  }
  int Get() const { return number_; }

 private:
  int number_;
};

StreamOutcome Wait(const Socket& socket, short what, std::uint32_t milliseconds) {
  pollfd one{socket.Get(), what, 0};
  const int count = poll(&one, 1, static_cast<int>(milliseconds));
  if (count == 0) return StreamOutcome::TimedOut;
  return count > 0 ? StreamOutcome::Done : StreamOutcome::Failed;
}

StreamOutcome OutcomeOfError() {
  return errno == ECONNRESET || errno == EPIPE ? StreamOutcome::Closed : StreamOutcome::Failed;
}

using AddressList = std::unique_ptr<addrinfo, void (*)(addrinfo*)>;

AddressList LookUp(const std::string& host, const char* port, int flags) {
  addrinfo wanted{};
  wanted.ai_socktype = SOCK_STREAM;
  wanted.ai_flags = flags;
  addrinfo* found = nullptr;
  if (getaddrinfo(host.c_str(), port, &wanted, &found) != 0) found = nullptr;
  return {found, [](addrinfo* list) {
            if (list != nullptr) freeaddrinfo(list);
          }};
}

class PosixTcpStream : public TcpStream {
 public:
  explicit PosixTcpStream(Socket socket) : socket_(std::move(socket)) {}

  StreamOutcome Send(std::string_view bytes, std::uint32_t milliseconds) override {
    PosixTickClock clock;
    const std::uint32_t start = clock.Milliseconds();
    while (!bytes.empty()) {
      const std::uint32_t passed = clock.Milliseconds() - start;
      const StreamOutcome ready =
          Wait(socket_, POLLOUT, passed < milliseconds ? milliseconds - passed : 0);
      if (ready != StreamOutcome::Done) return ready;
      const ssize_t sent =
          send(socket_.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
      if (sent < 0 && errno != EAGAIN) return OutcomeOfError();
      if (sent > 0) bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return StreamOutcome::Done;
  }

  StreamOutcome Receive(std::string& bytes, std::uint32_t milliseconds) override {
    const StreamOutcome ready = Wait(socket_, POLLIN, milliseconds);
    if (ready != StreamOutcome::Done) return ready;
    std::array<char, 4096> part;
    const ssize_t got = recv(socket_.Get(), part.data(), part.size(), 0);
    if (got == 0) return StreamOutcome::Closed;
    if (got < 0) return OutcomeOfError();
    bytes.append(part.data(), static_cast<std::size_t>(got));
    return StreamOutcome::Done;
  }

 private:
  Socket socket_;
};

}  // namespace

// The tests look up and connect to this machine alone, where neither waits.
std::vector<std::string> PosixTcpConnector::AddressesOf(const std::string& host, std::uint32_t,
                                                        StreamOutcome& outcome) {
  const AddressList found = LookUp(host, nullptr, 0);
  std::vector<std::string> addresses;
  for (const addrinfo* one = found.get(); one != nullptr; one = one->ai_next) {
    std::array<char, NI_MAXHOST> text;
    if (getnameinfo(one->ai_addr, one->ai_addrlen, text.data(), text.size(), nullptr, 0,
                    NI_NUMERICHOST) == 0) {
      addresses.emplace_back(text.data());
    }
  }
  outcome = addresses.empty() ? StreamOutcome::Failed : StreamOutcome::Done;
  return addresses;
}

std::unique_ptr<TcpStream> PosixTcpConnector::Connect(const std::string& address, int port,
                                                      std::uint32_t, StreamOutcome& outcome) {
  outcome = StreamOutcome::Failed;
  const AddressList found = LookUp(address, std::to_string(port).c_str(), AI_NUMERICHOST);
  if (found == nullptr) return nullptr;
  Socket fresh(socket(found->ai_family, found->ai_socktype, found->ai_protocol));
  if (connect(fresh.Get(), found->ai_addr, found->ai_addrlen) != 0) return nullptr;
  outcome = StreamOutcome::Done;
  return std::make_unique<PosixTcpStream>(std::move(fresh));
}

std::uint32_t PosixTickClock::Milliseconds() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint32_t>(
      std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

void PosixTickClock::Pause(std::uint32_t milliseconds) {
  std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

}  // namespace tarvo
