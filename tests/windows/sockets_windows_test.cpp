#include "platform/windows/sockets_windows.h"

#include <gtest/gtest.h>
#include <winsock2.h>

#include <cstring>

#include "tests/servers/server_commands.h"
#include "tests/windows/running_server.h"
#include "tests/windows/test_folder.h"

namespace tarvo {
namespace {

using test::RunningServer;

constexpr std::uint16_t kVersion22 = 0x0202;
constexpr int kSocketLevel = 0xFFFF;
constexpr int kProtocolInfo = 0x2004;
constexpr std::uint32_t kNoAddress = 0xFFFFFFFF;
constexpr std::uint32_t kWait = 1000;

class WindowsSocketsTest : public testing::Test {
 protected:
  WindowsSocketsTest() { EXPECT_EQ(sockets_.Start(kVersion22), 0); }
  ~WindowsSocketsTest() override { sockets_.Stop(); }

  static SocketAddress AddressOf(unsigned short port) {
    sockaddr_in native{};
    native.sin_family = AF_INET;
    native.sin_port = htons(port);
    native.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    SocketAddress address{};
    std::memcpy(address.data(), &native, address.size());
    return address;
  }

  int ConnectToPort(unsigned short port) {
    const SocketHandle socket = sockets_.Create(0, 1, 6);
    EXPECT_GT(socket, 0);
    sockets_.SendFirstPacketOnce(socket);
    const int result = sockets_.ConnectTo(socket, AddressOf(port), kWait);
    sockets_.Close(socket);
    return result;
  }

  test::TestFolder folder_;
  WindowsSockets sockets_;
};

TEST_F(WindowsSocketsTest, RefusesAVersionThatDoesNotExist) {
  EXPECT_EQ(sockets_.Start(0), WSAVERNOTSUPPORTED);
}

TEST_F(WindowsSocketsTest, TheProtocolRecordNamesTheInternetFamily) {
  const SocketHandle socket = sockets_.Create(0, 1, 6);
  ASSERT_GT(socket, 0);
  const auto record = sockets_.ReadOption(socket, kSocketLevel, kProtocolInfo);
  sockets_.Close(socket);
  ASSERT_TRUE(record.has_value());
  WSAPROTOCOL_INFOA info{};
  std::memcpy(&info, record->data(), sizeof(info));
  EXPECT_EQ(info.iAddressFamily, 2);
  EXPECT_EQ(info.iSocketType, 1);
  EXPECT_EQ(info.iProtocol, 6);
}

TEST_F(WindowsSocketsTest, AClosedSocketHasNoOptions) {
  EXPECT_FALSE(sockets_.ReadOption(kNoSocket, kSocketLevel, kProtocolInfo).has_value());
  const SocketHandle socket = sockets_.Create(0, 1, 6);
  sockets_.Close(socket);
  EXPECT_FALSE(sockets_.ReadOption(socket, kSocketLevel, kProtocolInfo).has_value());
  sockets_.Close(kNoSocket);
}

TEST_F(WindowsSocketsTest, AnImpossibleSocketIsNone) {
  EXPECT_EQ(sockets_.Create(9999, 1, 6), kNoSocket);
}

TEST_F(WindowsSocketsTest, ReadsDottedAddresses) {
  EXPECT_EQ(sockets_.DottedAddress("127.0.0.1"), 0x0100007FU);
  EXPECT_EQ(sockets_.DottedAddress("10.0.0.5"), 0x0500000AU);
  for (const char* other : {"localhost", "255.255.255.255", "1.2.3.400", "x"}) {
    EXPECT_EQ(sockets_.DottedAddress(other), kNoAddress) << other;
  }
}

TEST_F(WindowsSocketsTest, FindsTheAddressOfAName) {
  const std::vector<std::uint8_t> loopback = {127, 0, 0, 1};
  const HostAnswer answer = sockets_.FirstAddressOf("localhost", 20000);
  EXPECT_EQ(answer.outcome, LookUp::Found);
  EXPECT_EQ(answer.address, loopback);
  for (const char* nobody : {"", "no-such-host.invalid"}) {
    EXPECT_EQ(sockets_.FirstAddressOf(nobody, 60000).outcome, LookUp::Unknown) << nobody;
  }
}

TEST_F(WindowsSocketsTest, ConnectsToWhoListensAndOnlyThen) {
  const RunningServer server("login");
  EXPECT_EQ(ConnectToPort(server.Port()), 0);
  EXPECT_EQ(server.Tell(sample::kClosePort), 1);
  EXPECT_EQ(ConnectToPort(server.Port()), kConnectRefused);
  EXPECT_EQ(server.Tell(sample::kAnswer), 1);
  EXPECT_EQ(ConnectToPort(server.Port()), 0);
  EXPECT_EQ(ConnectToPort(test::FreePort()), kConnectRefused);
}

TEST_F(WindowsSocketsTest, ASocketBlocksAgainAfterItsConnect) {
  const SocketHandle listener = sockets_.Create(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  SocketAddress address = AddressOf(0);
  sockaddr native{};
  std::memcpy(&native, address.data(), sizeof native);
  ASSERT_EQ(bind(static_cast<SOCKET>(listener), &native, sizeof native), 0);
  ASSERT_EQ(listen(static_cast<SOCKET>(listener), 5), 0);
  int size = sizeof native;
  ASSERT_EQ(getsockname(static_cast<SOCKET>(listener), &native, &size), 0);
  std::memcpy(address.data(), &native, sizeof native);

  const SocketHandle caller = sockets_.Create(0, 1, 6);
  ASSERT_EQ(sockets_.ConnectTo(caller, address, kWait), 0);
  const DWORD patience = 50;
  setsockopt(static_cast<SOCKET>(caller), SOL_SOCKET, SO_RCVTIMEO,
             reinterpret_cast<const char*>(&patience), sizeof patience);
  char byte = 0;
  EXPECT_EQ(recv(static_cast<SOCKET>(caller), &byte, 1, 0), SOCKET_ERROR);
  EXPECT_EQ(WSAGetLastError(), WSAETIMEDOUT);
  sockets_.Close(caller);
  sockets_.Close(listener);
}

TEST_F(WindowsSocketsTest, AConnectToAFullQueueIsEndedByItsTime) {
  const RunningServer server("map");
  ASSERT_EQ(server.Tell(sample::kHang), 1);
  const DWORD start = GetTickCount();
  EXPECT_EQ(ConnectToPort(server.Port()), kConnectTimedOut);
  const DWORD took = GetTickCount() - start;
  EXPECT_GE(took, kWait - 50);
  EXPECT_LE(took, kWait + 1000);
  EXPECT_TRUE(server.Runs());
  EXPECT_EQ(server.Tell(sample::kAnswer), 1);
  EXPECT_EQ(ConnectToPort(server.Port()), 0);
}

}  // namespace
}  // namespace tarvo
