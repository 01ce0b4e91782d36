
#include <gtest/gtest.h>
#include <winsock2.h>

#include <cstring>

#include "platform/windows/sockets_windows.h"
#include "supervision/port_probe.h"

namespace tarvo {
namespace {

/// Gives a record whose every field the system's own header has placed.
class RecordedSockets final : public Sockets {
 public:
  WSAPROTOCOL_INFOA info{};

  int Start(std::uint16_t) override { return 0; }
  void Stop() override {}
  SocketHandle Create(int, int, int) override { return kNoSocket; }
  void Close(SocketHandle) override {}
  std::optional<ProtocolRecord> ReadOption(SocketHandle, int, int) override {
    ProtocolRecord record{};
    std::memcpy(record.data(), &info, sizeof info);
    return record;
  }
  std::uint32_t DottedAddress(const std::string&) override { return kNoAddress; }
  HostAnswer FirstAddressOf(const std::string&, std::uint32_t) override { return {}; }
  bool SendFirstPacketOnce(SocketHandle) override { return false; }
  int ConnectTo(SocketHandle, const SocketAddress&, std::uint32_t) override { return -1; }
};

TEST(ProtocolRecord, FollowsTheSystemsOwnStructure) {
  RecordedSockets sockets;
  WSAPROTOCOL_INFOA& info = sockets.info;
  info.iVersion = 2;
  info.iAddressFamily = 23;
  info.iMaxSockAddr = 28;

  CProtocol protocol;
  ASSERT_TRUE(protocol.GetBySocketHandle(sockets, 4));
  EXPECT_EQ(protocol.AddressFamily, 23);
}

TEST(ProtocolRecord, ReadsTheFamilyOfARealSocket) {
  WindowsSockets sockets;
  ASSERT_EQ(sockets.Start(0x0202), 0);
  PortProbe probe(sockets);
  const SocketHandle socket = probe.CreateTcpSocket();
  CProtocol protocol;
  EXPECT_TRUE(protocol.GetBySocketHandle(sockets, socket));
  EXPECT_EQ(protocol.AddressFamily, AF_INET);
  sockets.Close(socket);
  sockets.Stop();
}

}  // namespace
}  // namespace tarvo
