#include "supervision/port_probe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "supervision/probe_failure.h"
#include "support/runtime_error.h"
#include "tests/simulation/sim_machine.h"

namespace tarvo {
namespace {

class Probe : public ::testing::Test {
 protected:
  Probe() {
    machine.processes.Program("server.exe").port = 40000;
    machine.processes.StartForeign("server.exe");
  }
  bool Listening(const std::string& host, std::int32_t port = 40000) {
    return probe.IsPortListening(host, port);
  }

  SimMachine machine;
  PortProbe probe{machine.network};
};

TEST_F(Probe, AListeningPortIsFoundAndItsSocketClosed) {
  EXPECT_TRUE(Listening("127.0.0.1"));
  EXPECT_EQ(machine.network.OpenSockets(), 0u);
  EXPECT_EQ(machine.recorder.Calls(),
            (std::vector<std::string>{"sockets.create(0, 1, 6)", "sockets.option(65535, 8196)",
                                      "sockets.dotted(127.0.0.1)", "sockets.once(101)",
                                      "sockets.connect()", "sockets.close(101)"}));
}

TEST_F(Probe, TheBytesOnTheWireAreThoseOfTheWholePort) {
  ASSERT_TRUE(Listening("127.0.0.1", 40000));
  EXPECT_EQ(machine.network.Connects().front(),
            (SocketAddress{2, 0, 0x9C, 0x40, 127, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(Probe, ARefusedConnectIsNotListeningAtOnce) {
  const std::uint64_t start = machine.clock.Age();
  EXPECT_FALSE(Listening("127.0.0.1", 40001));
  EXPECT_EQ(machine.clock.Age(), start);
  EXPECT_EQ(machine.network.OpenSockets(), 0u);
}

TEST_F(Probe, WhereTheSystemRepeatsARefusedConnectItsSecondEndsIt) {
  machine.network.AlwaysRepeatPackets();
  const std::uint64_t start = machine.clock.Age();
  EXPECT_FALSE(Listening("127.0.0.1", 40001));
  EXPECT_EQ(machine.clock.Age() - start, 1000u);
  EXPECT_TRUE(Listening("127.0.0.1"));
}

TEST_F(Probe, AnUnansweredConnectIsNotListeningAfterASecondAndItsSocketIsClosed) {
  const std::uint64_t start = machine.clock.Age();
  EXPECT_FALSE(Listening("10.0.0.5"));
  EXPECT_EQ(machine.clock.Age() - start, 1000u);
  EXPECT_EQ(machine.network.OpenSockets(), 0u);
}

TEST_F(Probe, AServerThatAcceptsNobodyListensUntilItsQueueIsFull) {
  SimProcess& server = machine.processes.TheOne("server.exe");
  server.answer = PortAnswer::NobodyAccepts;
  server.queueRoom = 2;
  EXPECT_TRUE(Listening("127.0.0.1"));
  EXPECT_TRUE(Listening("127.0.0.1"));
  EXPECT_FALSE(Listening("127.0.0.1"));
}

/// A sockets layer whose connect comes back with a number of its own.
class ConnectsWith final : public Sockets {
 public:
  ConnectsWith(Sockets& machine, int result) : machine_(machine), result_(result) {}
  int Start(std::uint16_t version) override { return machine_.Start(version); }
  void Stop() override { machine_.Stop(); }
  SocketHandle Create(int family, int type, int protocol) override {
    return machine_.Create(family, type, protocol);
  }
  void Close(SocketHandle socket) override { machine_.Close(socket); }
  std::optional<ProtocolRecord> ReadOption(SocketHandle socket, int level, int option) override {
    return machine_.ReadOption(socket, level, option);
  }
  std::uint32_t DottedAddress(const std::string& host) override {
    return machine_.DottedAddress(host);
  }
  HostAnswer FirstAddressOf(const std::string& host, std::uint32_t milliseconds) override {
    return machine_.FirstAddressOf(host, milliseconds);
  }
  bool SendFirstPacketOnce(SocketHandle) override { return false; }
  int ConnectTo(SocketHandle, const SocketAddress&, std::uint32_t) override { return result_; }

 private:
  Sockets& machine_;
  int result_;
};

TEST_F(Probe, AnyResultOfAConnectButZeroIsNotListening) {
  for (const int result : {-1, 1, 10060, INT32_MAX, INT32_MIN}) {
    ConnectsWith sockets(machine.network, result);
    EXPECT_FALSE(PortProbe(sockets).IsPortListening("127.0.0.1", 40000)) << result;
  }
  ConnectsWith sockets(machine.network, 0);
  EXPECT_TRUE(PortProbe(sockets).IsPortListening("127.0.0.1", 40000));
}

TEST_F(Probe, AConnectThatCannotBeTriedComesBackAsMinusOne) {
  EXPECT_EQ(probe.ConnectSocket(0, "127.0.0.1", 40000), -1);
  const SocketHandle socket = probe.CreateTcpSocket();
  EXPECT_EQ(probe.ConnectSocket(socket, "", 40000), -1);
  EXPECT_EQ(probe.ConnectSocket(socket, "127.0.0.1", 0), -1);
  EXPECT_EQ(probe.ConnectSocket(socket, "no.such.host", 40000), -1);
}

TEST_F(Probe, ThePortOneIsTried) {
  EXPECT_FALSE(Listening("127.0.0.1", 1));
  EXPECT_EQ(machine.network.Connects().size(), 1u);
}

TEST_F(Probe, TheHandleZeroIsNoSocket) {
  machine.network.SetNextSocket(0);
  EXPECT_FALSE(Listening("127.0.0.1"));
  EXPECT_EQ(machine.recorder.Calls(),
            (std::vector<std::string>{"sockets.create(0, 1, 6)", "sockets.close(0)"}));
  EXPECT_TRUE(Listening("127.0.0.1"));
}

TEST_F(Probe, APortBelowOneIsNotListeningWithoutAnAttempt) {
  for (std::int32_t port : {0, -1, -40000, INT32_MIN}) {
    EXPECT_FALSE(Listening("127.0.0.1", port)) << port;
  }
  EXPECT_TRUE(machine.network.Connects().empty());
  EXPECT_EQ(machine.recorder.CountOf("sockets.option"), 0u);
  EXPECT_EQ(machine.network.OpenSockets(), 0u);
}

TEST_F(Probe, APortThatNoSocketCanHaveIsNotListening) {
  for (std::int32_t port : {65536, 70000, 105536, INT32_MAX}) {
    EXPECT_FALSE(Listening("127.0.0.1", port)) << port;
  }
  EXPECT_TRUE(machine.network.Connects().empty());
  EXPECT_EQ(machine.network.OpenSockets(), 0u);
}

TEST_F(Probe, AnUnusableHostIsNotListening) {
  for (const char* host :
       {"", " ", "   ", "no.such.host", "127.0.0", "127.0.0.1 // main", "255.255.255.255"}) {
    EXPECT_FALSE(Listening(host)) << '"' << host << '"';
  }
  EXPECT_TRUE(machine.network.Connects().empty());
  EXPECT_EQ(machine.network.OpenSockets(), 0u);
}

TEST_F(Probe, AHostsFirstAddressCountsWithAsManyBytesAsItHas) {
  machine.network.AddHost("short", {127, 0});
  machine.network.AddHost("long", {127, 0, 0, 1, 9, 9});
  machine.network.AddHost("all-ones", {255, 255, 255, 255});
  EXPECT_TRUE(Listening("long"));
  EXPECT_FALSE(Listening("short"));
  EXPECT_FALSE(Listening("all-ones"));
  EXPECT_EQ(machine.network.Connects().size(), 2u);
  machine.network.AddHost("none", {});
  EXPECT_FALSE(Listening("none"));
  const SocketAddress& last = machine.network.Connects().back();
  EXPECT_EQ(std::vector<int>(last.begin() + 4, last.begin() + 8), (std::vector<int>{0, 0, 0, 0}));
}

TEST_F(Probe, WithoutASocketNothingIsTriedAndTheHandleIsClosedAllTheSame) {
  machine.network.RefuseSockets(true);
  EXPECT_FALSE(Listening("127.0.0.1"));
  EXPECT_EQ(machine.recorder.Calls(),
            (std::vector<std::string>{"sockets.create(0, 1, 6)", "sockets.close(-1)"}));
}

TEST_F(Probe, WithoutAProtocolRecordTheFamilyIsUnknownAndNothingListens) {
  machine.network.HideProtocolRecord(true);
  EXPECT_FALSE(Listening("127.0.0.1"));
  ASSERT_EQ(machine.network.Connects().size(), 1u);
  EXPECT_EQ(machine.network.Connects().front()[0], 0);
}

TEST(PortToShort, KeepsTheSixteenBitsAndOverflowsBeyondThem) {
  const struct {
    std::int32_t port;
    std::int16_t narrowed;
  } cases[] = {{0, 0}, {1, 1}, {32767, 32767}, {32768, -32768}, {40000, -25536}, {65535, -1}};
  for (const auto& c : cases) EXPECT_EQ(PortToShort(c.port), c.narrowed) << c.port;
  for (std::int32_t port : {-1, 65536, INT32_MIN, INT32_MAX}) {
    try {
      PortToShort(port);
      ADD_FAILURE() << port;
    } catch (const RuntimeError& fault) {
      EXPECT_EQ(fault.Number(), 6) << port;
      EXPECT_EQ(fault.Source(), "PortToShort");
    }
  }
}

/// A record in which every number differs from its neighbours: 1000 more than its offset.
ProtocolRecord TellingRecord() {
  ProtocolRecord record{};
  for (std::uint32_t offset = 0; offset < record.size(); offset += 4) {
    const std::uint32_t number = 1000 + offset;
    std::memcpy(record.data() + offset, &number, sizeof number);
  }
  return record;
}

TEST_F(Probe, TheFamilyIsReadFromItsPlaceInTheCatalogueRecord) {
  machine.network.SetProtocolRecord(TellingRecord());
  CProtocol protocol;
  EXPECT_EQ(protocol.AddressFamily, 0);
  ASSERT_TRUE(protocol.GetBySocketHandle(machine.network, probe.CreateTcpSocket()));
  EXPECT_EQ(protocol.AddressFamily, 1076);
}

TEST_F(Probe, AFailedQueryLeavesTheRecordUnchanged) {
  machine.network.SetProtocolRecord(TellingRecord());
  const SocketHandle socket = probe.CreateTcpSocket();
  CProtocol protocol;
  ASSERT_TRUE(protocol.GetBySocketHandle(machine.network, socket));
  machine.network.HideProtocolRecord(true);
  EXPECT_FALSE(protocol.GetBySocketHandle(machine.network, socket));
  EXPECT_EQ(protocol.AddressFamily, 1076);
}

TEST(WinsockErrorText, HasATextForEachOfItsNumbersAndOneForAllOthers) {
  const struct {
    int code;
    const char* text;
  } cases[] = {{10004, "Interrupted function call."},
               {10013, "Permission denied."},
               {10014, "Bad address."},
               {10022, "Invalid argument."},
               {10024, "Too many open files."},
               {10035, "Resource temporarily unavailable."},
               {10036, "Operation now in progress."},
               {10037, "Operation already in progress."},
               {10038, "Socket operation on nonsocket."},
               {10039, "Destination address required."},
               {10040, "Message too long."},
               {10041, "Protocol wrong type for socket."},
               {10042, "Bad protocol option."},
               {10043, "Protocol not supported."},
               {10044, "Socket type not supported."},
               {10045, "Operation not supported."},
               {10046, "Protocol family not supported."},
               {10047, "Address family not supported by protocol family."},
               {10048, "Address already in use."},
               {10049, "Cannot assign requested address."},
               {10050, "Network is down."},
               {10051, "Network is unreachable."},
               {10052, "Network dropped connection on reset."},
               {10053, "Software caused connection abort."},
               {10054, "Connection reset by peer."},
               {10055, "No buffer space available."},
               {10056, "Socket is already connected."},
               {10057, "Socket is not connected."},
               {10058, "Cannot send after socket shutdown."},
               {10060, "Connection timed out."},
               {10061, "Connection refused."},
               {10064, "Host is down."},
               {10065, "No route to host."},
               {10067, "Too many processes."},
               {10091, "Network subsystem is unavailable."},
               {10092, "Winsock.dll version out of range."},
               {10093, "Successful WSAStartup not yet performed."},
               {10101, "Graceful shutdown in progress."},
               {10107, "System call failure."},
               {10109, "Class type not found."},
               {11001, "Host not found."},
               {11002, "Nonauthoritative host not found."},
               {11003, "This is a nonrecoverable error."},
               {11004, "Valid name, no data record of requested type."}};
  std::size_t known = 0;
  for (int code = 9990; code < 11020; ++code) known += WinsockErrorText(code) != "Unknown error.";
  EXPECT_EQ(known, std::size(cases));
  for (const auto& c : cases) EXPECT_EQ(WinsockErrorText(c.code), c.text) << c.code;
  for (int code : {0, -1, 10059, 10062, 10094, 11005, 1000000}) {
    EXPECT_EQ(WinsockErrorText(code), "Unknown error.") << code;
  }
}

}  // namespace
}  // namespace tarvo
