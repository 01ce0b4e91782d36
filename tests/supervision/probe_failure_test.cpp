#include "supervision/probe_failure.h"

#include "supervision/port_probe.h"
#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

TEST(ProbeFailure, NamesAddressPortAndReason) {
  SimMachine machine;
  PortProbe probe(machine.network);
  machine.processes.StartForeign(kLogin);
  const auto told = [&](const std::string& host, std::int32_t port) {
    probe.IsPortListening(host, port);
    return ProbeFailureText(host, port, probe.LastError());
  };
  EXPECT_EQ(told("127.0.0.1", 6901), "127.0.0.1:6901: refused");
  EXPECT_EQ(told(" 10.0.0.5 ", 6900), "10.0.0.5:6900: no answer in 1 s");
  EXPECT_EQ(told("nobody", 6900), "nobody:6900: the name is unknown");
  EXPECT_EQ(told("255.255.255.255", 6900), "255.255.255.255:6900: the name is unknown");
  EXPECT_EQ(told("", 6900), ":6900: the name is unknown");
  EXPECT_EQ(told("  ", 6900), ":6900: the name is unknown");
  EXPECT_EQ(told("127.0.0.1", 0), "127.0.0.1:0: there is no such port");
  EXPECT_EQ(told("127.0.0.1", 70000), "127.0.0.1:70000: there is no such port");
  EXPECT_EQ(told("127.0.0.1", 6900), "");
  machine.network.SetNameServerDelay(SimNetwork::kDeadNameServer);
  EXPECT_EQ(told("game", 6900), "game:6900: no answer in 1 s from the name server");
  machine.network.RefuseSockets(true);
  EXPECT_EQ(told("127.0.0.1", 6900), "127.0.0.1:6900: no socket to connect with");
  EXPECT_EQ(ProbeFailureText("127.0.0.1", 6900, 10065), "127.0.0.1:6900: No route to host.");
}

class TroubleTold : public LauncherStory {
 protected:
  void SetUp() override {
    StartLauncher();
    launcher->Check("chkAK", 0);
    launcher->Type("TTO", 0, "300");
    launcher->Click("bStart", 0);
    launcher->Pass(5s);
  }
  /// The tool tip without its first line, which tells how the component is.
  std::string Tip(ComponentKind kind = ComponentKind::Login) {
    const std::string tip = launcher->TheForm().frame.Sem[kind].ToolTip();
    const std::size_t end = tip.find("\r\n");
    return end == tip.npos ? std::string() : tip.substr(end + 2);
  }
  /// A silent server's tool tip is up.
  void BeSilent() {
    Process(kLogin).answer = PortAnswer::TimesOut;
    launcher->Pass(20s);
    ASSERT_EQ(Tip(), "127.0.0.1:6900: no answer in 1 s");
  }
};

TEST_F(TroubleTold, ByTheLightsToolTipUntilTheServerListensAgain) {
  EXPECT_EQ(Tip(), "");
  Freeze(kLogin);
  launcher->Pass(20s);
  EXPECT_EQ(Tip(), "127.0.0.1:6900: refused");
  EXPECT_EQ(Tip(ComponentKind::Char), "");
  BeSilent();
  Thaw(kLogin);
  launcher->Pass(5s);
  EXPECT_EQ(Tip(), "");
}

TEST_F(TroubleTold, NoMoreOnceTheServerIsStopped) {
  BeSilent();
  launcher->Click("bStart", 0);
  EXPECT_EQ(Tip(), "");
  launcher->Pass(3s);
  EXPECT_EQ(Tip(), "");
}

TEST_F(TroubleTold, NotOfASuccessorThatHasNotBeenProbedYet) {
  BeSilent();
  Crash(kLogin);
  while (launcher->CountInLog("Login Server crashed, restarting...") == 0) launcher->Pass(100ms);
  launcher->Pass(2s);
  EXPECT_EQ(Tip(), "");
}

}  // namespace
}  // namespace tarvo
