// A probe of a server that is given by its name.

#include <gtest/gtest.h>

#include "supervision/port_probe.h"
#include "tests/simulation/sim_machine.h"

namespace tarvo {
namespace {

constexpr std::uint32_t kSlow = 3000;

class ProbeByName : public ::testing::Test {
 protected:
  ProbeByName() {
    machine.processes.Program("server.exe").port = 40000;
    machine.processes.StartForeign("server.exe");
  }
  bool Listening(const std::string& host) { return probe.IsPortListening(host, 40000); }
  /// The milliseconds that the probe takes.
  std::uint64_t Cost(const std::string& host) {
    const std::uint64_t start = machine.clock.Age();
    Listening(host);
    return machine.clock.Age() - start;
  }
  std::size_t Asked() const { return machine.recorder.CountOf("sockets.ask"); }

  SimMachine machine;
  PortProbe probe{machine.network};
};

TEST_F(ProbeByName, BlanksAroundANameAreIgnoredAndTabsAreNot) {
  machine.network.AddHost("my-server", {127, 0, 0, 1});
  for (const char* host : {"my-server", " my-server", "my-server  "}) {
    EXPECT_TRUE(Listening(host)) << '"' << host << '"';
  }
  for (const char* host : {"\tmy-server", "my-server\t", " \tmy-server", "\t127.0.0.1"}) {
    EXPECT_FALSE(Listening(host)) << '"' << host << '"';
  }
}

TEST_F(ProbeByName, ANameWithoutBlanksIsTriedAsAnAddressOnce) {
  Listening("no.such.host");
  EXPECT_EQ(machine.recorder.CountOf("sockets.dotted"), 1u);
}

TEST_F(ProbeByName, ADottedAddressWithBlanksAroundItAsksNobody) {
  machine.network.AddHost("127.0.0.1", {10, 0, 0, 5});
  for (const char* host : {"127.0.0.1", " 127.0.0.1", "127.0.0.1  "}) {
    EXPECT_TRUE(Listening(host)) << '"' << host << '"';
  }
  EXPECT_EQ(machine.recorder.CountOf("sockets.name"), 0u);
}

TEST_F(ProbeByName, TheBroadcastAddressIsTakenForANameAndUnknown) {
  for (const char* host : {"255.255.255.255", " 255.255.255.255"}) {
    machine.recorder.Forget();
    EXPECT_FALSE(Listening(host));
    EXPECT_EQ(machine.recorder.CountOf("sockets.name(255.255.255.255)"), 1u);
  }
  EXPECT_TRUE(machine.network.Connects().empty());
}

TEST_F(ProbeByName, ANameIsWaitedForOneSecondAndNoMore) {
  machine.network.AddServedName("game", {127, 0, 0, 1});
  machine.network.SetNameServerDelay(1000);
  EXPECT_TRUE(Listening("game"));
  machine.network.SetNameServerDelay(1001);
  PortProbe fresh(machine.network);
  EXPECT_FALSE(fresh.IsPortListening("game", 40000));
  machine.network.SetNameServerDelay(SimNetwork::kDeadNameServer);
  EXPECT_EQ(Cost("nobody-knows"), 1000u);
}

TEST_F(ProbeByName, AnUnansweredNameHasTheAddressThatItGaveLast) {
  machine.network.AddServedName("game", {127, 0, 0, 1});
  machine.network.AddServedName("other", {10, 0, 0, 5});
  ASSERT_TRUE(Listening("game"));
  ASSERT_FALSE(Listening("other"));
  machine.network.SetNameServerDelay(SimNetwork::kDeadNameServer);
  for (std::uint32_t i = 0; i < 30; ++i) {
    EXPECT_TRUE(Listening(i % 2 == 0 ? "game" : " game "));
    machine.clock.Advance(i * 700);
  }
  EXPECT_FALSE(Listening("other"));
  EXPECT_FALSE(Listening("third"));
}

TEST_F(ProbeByName, ANegativeAnswerIsNoAddressWhateverTheNameGaveBefore) {
  machine.network.AddServedName("game", {127, 0, 0, 1});
  ASSERT_TRUE(Listening("game"));
  machine.network.AddServedName("game", {});
  EXPECT_FALSE(Listening("game"));
  EXPECT_EQ(probe.ResolveHostAddress("game"), kNoAddress);
}

TEST_F(ProbeByName, OneQuestionIsOpenForANameHoweverOftenItIsProbed) {
  machine.network.SetNameServerDelay(SimNetwork::kDeadNameServer);
  for (int i = 0; i < 10; ++i) EXPECT_FALSE(Listening("game"));
  EXPECT_EQ(Asked(), 1u);
  for (int i = 0; i < 1000; ++i) Listening(i % 2 == 0 ? "game" : "other");
  EXPECT_LE(machine.network.OpenQuestions(), 2u);
}

TEST_F(ProbeByName, ALateAnswerIsTheNextProbesAndIsKept) {
  machine.network.AddServedName("game", {127, 0, 0, 1});
  machine.network.SetNameServerDelay(kSlow);
  EXPECT_FALSE(Listening("game"));
  machine.clock.Advance(10000);
  EXPECT_EQ(Cost("game"), 0u);
  EXPECT_EQ(machine.network.Connects().size(), 1u);
  machine.network.SetNameServerDelay(SimNetwork::kDeadNameServer);
  EXPECT_TRUE(Listening("game"));
}

TEST_F(ProbeByName, AnAnswerWhileItIsWaitedForAgainCounts) {
  machine.network.AddServedName("game", {127, 0, 0, 1});
  machine.network.SetNameServerDelay(1500);
  EXPECT_FALSE(Listening("game"));
  EXPECT_EQ(Cost("game"), 500u);
  EXPECT_EQ(Asked(), 1u);
}

TEST_F(ProbeByName, ASystemThatGivesUpAskingSaysNothingAboutTheName) {
  machine.network.AddServedName("game", {127, 0, 0, 1});
  ASSERT_TRUE(Listening("game"));
  machine.network.SetNameServerDelay(SimNetwork::kDeadNameServer);
  // The moments of the probes go over the one at which the system gives up, between two probes and
  // in the middle of one.
  for (std::uint32_t pause : {500u, 9500u, 600u, 9800u, 1900u, 700u, 12000u}) {
    EXPECT_TRUE(Listening("game")) << pause;
    machine.clock.Advance(pause);
  }
}

TEST_F(ProbeByName, ANameServerThatComesBackIsAskedAgain) {
  machine.network.SetNameServerDelay(SimNetwork::kDeadNameServer);
  EXPECT_FALSE(Listening("game"));
  machine.network.AddServedName("game", {127, 0, 0, 1});
  machine.network.SetNameServerDelay(0);
  machine.clock.Advance(SimNetwork::kDeadNameServer);
  EXPECT_TRUE(Listening("game"));
}

}  // namespace
}  // namespace tarvo
