#include "supervision/protocol_record.h"

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

TEST(ProtocolRecord, MirrorsTheSystemsOwnStructure) {
  RecordedSockets sockets;
  WSAPROTOCOL_INFOA& info = sockets.info;
  info.dwServiceFlags1 = XP1_CONNECTIONLESS | XP1_IFS_HANDLES;
  info.dwProviderFlags = PFL_MATCHES_PROTOCOL_ZERO;
  info.ProviderId.Data4[7] = 0x5A;
  info.dwCatalogEntryId = 1001;
  info.iVersion = 2;
  info.iAddressFamily = 23;
  info.iMaxSockAddr = 28;
  info.iMinSockAddr = 16;
  info.iSocketType = 1;
  info.iProtocol = 6;
  info.iProtocolMaxOffset = 7;
  info.iNetworkByteOrder = 8;
  info.iSecurityScheme = 9;
  info.dwMessageSize = 10;
  std::strcpy(info.szProtocol, "MSAFD Tcpip [TCP/IP]");

  CProtocol protocol;
  ASSERT_TRUE(protocol.GetBySocketHandle(sockets, 4));
  EXPECT_TRUE(protocol.Connectionless);
  EXPECT_TRUE(protocol.IFSHandles);
  EXPECT_FALSE(protocol.GracefulClose);
  EXPECT_TRUE(protocol.MatchesProtocolZero);
  EXPECT_EQ(protocol.ProviderId[15], 0x5A);
  EXPECT_EQ(protocol.CatalogEntryId, 1001);
  EXPECT_EQ(protocol.Version, 2);
  EXPECT_EQ(protocol.AddressFamily, 23);
  EXPECT_EQ(protocol.MaxSockAddr, 28);
  EXPECT_EQ(protocol.MinSockAddr, 16);
  EXPECT_EQ(protocol.SocketType, 1);
  EXPECT_EQ(protocol.Protocol, 6);
  EXPECT_EQ(protocol.ProtocolMaxOffset, 7);
  EXPECT_EQ(protocol.NetworkByteOrder, 8);
  EXPECT_EQ(protocol.SecurityScheme, 9);
  EXPECT_EQ(protocol.MessageSize, 10);
  EXPECT_EQ(protocol.ProtocolName, "MSAFD Tcpip [TCP/IP]");
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
