// Looking machines up and connecting to them, in time.
#include <winsock2.h>
// After winsock2.h, which it needs.
#include <windows.h>

#include "xmldoc/mail/windows/tcp_stream_windows.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/windows/handle_windows.h"

namespace tarvo {
namespace {

constexpr std::uint32_t kPatient = 20000;

std::vector<std::string> AddressesOf(const std::string& host, StreamOutcome& outcome) {
  return WindowsTcpConnector().AddressesOf(host, kPatient, outcome);
}

TEST(WindowsTcpConnector, LooksUpNamesAndAddresses) {
  StreamOutcome outcome = StreamOutcome::Failed;
  EXPECT_EQ(AddressesOf("127.0.0.1", outcome), std::vector<std::string>{"127.0.0.1"});
  EXPECT_EQ(outcome, StreamOutcome::Done);
  const auto local = AddressesOf("localhost", outcome);
  EXPECT_EQ(outcome, StreamOutcome::Done);
  EXPECT_EQ(std::count(local.begin(), local.end(), "127.0.0.1"), 1);
  EXPECT_TRUE(AddressesOf("no blanks in names", outcome).empty());
  EXPECT_EQ(outcome, StreamOutcome::Failed);
}

KernelHandle& Event() {
  static KernelHandle event(CreateEventA(nullptr, TRUE, FALSE, nullptr));
  return event;
}

std::vector<std::string> AnswersLate(const std::string& host) {
  WaitForSingleObject(Event().Get(), 60000);
  return {host};
}

TEST(WindowsTcpConnector, WaitsForTheNameServiceNoLongerThanItsTime) {
  const ULONGLONG start = GetTickCount64();
  StreamOutcome outcome = StreamOutcome::Done;
  EXPECT_TRUE(WindowsTcpConnector(AnswersLate).AddressesOf("slow", 100, outcome).empty());
  EXPECT_EQ(outcome, StreamOutcome::TimedOut);
  EXPECT_GE(GetTickCount64() - start, 80u);
  EXPECT_LT(GetTickCount64() - start, 10000u);
  SetEvent(Event().Get());  // the thread that is left ends
  EXPECT_EQ(WindowsTcpConnector(AnswersLate).AddressesOf("slow", kPatient, outcome),
            std::vector<std::string>{"slow"});
  EXPECT_EQ(outcome, StreamOutcome::Done);
}

std::vector<std::string> Raises(const std::string&) { throw std::bad_alloc(); }

TEST(WindowsTcpConnector, TakesANameServiceThatRaisesForOneThatKnowsNothing) {
  StreamOutcome outcome = StreamOutcome::Done;
  EXPECT_TRUE(WindowsTcpConnector(Raises).AddressesOf("x", kPatient, outcome).empty());
  EXPECT_EQ(outcome, StreamOutcome::Failed);
}

/// A listening socket on a port of its own of the loopback address. Winsock is to be started.
class LocalListener {
 public:
  LocalListener() : socket_(socket(AF_INET, SOCK_STREAM, IPPROTO_TCP)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    int size = sizeof address;
    bind(socket_, reinterpret_cast<sockaddr*>(&address), size);
    listen(socket_, 1);
    getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &size);
    port_ = ntohs(address.sin_port);
  }
  ~LocalListener() { closesocket(socket_); }
  LocalListener(const LocalListener&) = delete;
  LocalListener& operator=(const LocalListener&) = delete;
  int Port() const { return port_; }
  SOCKET Accept() const { return accept(socket_, nullptr, nullptr); }

 private:
  SOCKET socket_;
  int port_ = 0;
};

TEST(WindowsTcpConnector, ConnectsByAddressAlone) {
  WindowsTcpConnector connector;
  const LocalListener listener;
  StreamOutcome outcome = StreamOutcome::Failed;
  EXPECT_NE(connector.Connect("127.0.0.1", listener.Port(), kPatient, outcome), nullptr);
  EXPECT_EQ(outcome, StreamOutcome::Done);
  EXPECT_EQ(connector.Connect("localhost", listener.Port(), kPatient, outcome), nullptr);
  EXPECT_EQ(outcome, StreamOutcome::Failed);
}

TEST(WindowsTcpConnector, TellsThatNobodyListens) {
  WindowsTcpConnector connector;
  const int port = LocalListener().Port();
  StreamOutcome outcome = StreamOutcome::Done;
  EXPECT_EQ(connector.Connect("127.0.0.1", port, kPatient, outcome), nullptr);
  EXPECT_EQ(outcome, StreamOutcome::Failed);
}

TEST(WindowsTcpStream, TakesWhatHasComeWithoutWaiting) {
  WindowsTcpConnector connector;
  const LocalListener listener;
  StreamOutcome outcome = StreamOutcome::Failed;
  const auto stream = connector.Connect("127.0.0.1", listener.Port(), kPatient, outcome);
  ASSERT_NE(stream, nullptr);
  const SOCKET peer = listener.Accept();
  std::string heard;
  EXPECT_EQ(stream->Receive(heard, 0), StreamOutcome::TimedOut);
  send(peer, "ab", 2, 0);
  EXPECT_EQ(stream->Receive(heard, kPatient), StreamOutcome::Done);
  EXPECT_EQ(heard, "ab");
  EXPECT_EQ(stream->Receive(heard, 0), StreamOutcome::TimedOut);
  closesocket(peer);
  EXPECT_EQ(stream->Receive(heard, kPatient), StreamOutcome::Closed);
}

}  // namespace
}  // namespace tarvo
