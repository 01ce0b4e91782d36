#include "checkup/endpoint_checks.h"

#include "tests/checkup/check_up_desk.h"

namespace tarvo {
namespace {

class EndpointChecks : public CheckUpDesk {
 protected:
  void PutMapPort(const std::string& port) {
    PutMapConf("map_ip:127.0.0.1\r\nmap_port:" + port + "\r\n");
  }
  void PutMapHost(const std::string& host) {
    PutMapConf("map_ip:" + host + "\r\nmap_port:5121\r\n");
  }
};

TEST_F(EndpointChecks, APortThatIsMissingOrZero) {
  PutMapConf("map_ip:127.0.0.1\r\n");
  EXPECT_EQ(Told(), "error port [Map] The port is 0, so nothing can be probed.\n");
  PutMapPort(" 0");
  EXPECT_EQ(Told(), "error port [Map] The port is 0, so nothing can be probed.\n");
}

TEST_F(EndpointChecks, APortOutOfRange) {
  PutMapPort(" 65536");
  EXPECT_EQ(Told(), "error port [Map] The port 65536 is out of range.\n");
  PutMapPort("-1");
  EXPECT_EQ(Told(), "error port [Map] The port -1 is out of range.\n");
  PutMapPort("65535");
  EXPECT_EQ(Told(), "");
  PutMapPort("1");
  EXPECT_EQ(Told(), "");
}

TEST_F(EndpointChecks, APortThatIsNoNumberEvenOnALineThatALaterOneOverrules) {
  PutMapConf("map_port: 5121 // main\r\nmap_port: 5121\r\n");
  EXPECT_EQ(Told(),
            "error port [Map] The port \"5121 // main\" is no number, and ends the launcher's next "
            "start.\n");
  PutMapPort("99999999999");
  EXPECT_EQ(Told(),
            "error port [Map] The port \"99999999999\" is no number, and ends the launcher's next "
            "start.\n");
}

TEST_F(EndpointChecks, AValueThatBareLineFeedsMakeLongerIsShownCut) {
  PutMapConf("map_ip:127.0.0.1\nmap_port: 5121\r\nmap_port: 5121\r\n");
  EXPECT_NE(Told().find("The host \"127.0.0.1...\" does not resolve"), std::string::npos) << Told();
}

TEST_F(EndpointChecks, AValueFarBehindItsKeyIsReadAsTheStartReadsIt) {
  const std::string blanks(300, ' ');
  PutMapConf("map_ip:" + blanks + "127.0.0.1\r\nmap_port:" + blanks + "5121" + blanks + "\r\n");
  EXPECT_EQ(Told(), "");
  PutMapConf("map_ip:127.0.0.1\r\nmap_port:" + blanks + "70000\r\n");
  EXPECT_EQ(Told(), "error port [Map] The port 70000 is out of range.\n");
}

TEST_F(EndpointChecks, AValueOfMoreThanFortyLettersIsShownCut) {
  PutMapHost(std::string(40, 'a'));
  EXPECT_NE(Told().find("\"" + std::string(40, 'a') + "\""), std::string::npos) << Told();
  PutMapHost(std::string(41, 'a'));
  EXPECT_NE(Told().find("\"" + std::string(40, 'a') + "...\""), std::string::npos) << Told();
}

TEST_F(EndpointChecks, OnePortForTwoComponentsOfOneHost) {
  PutMapPort("6121");
  EXPECT_EQ(Told(),
            "error port [Char and Map] Both have the port 6121, which only one of them can listen "
            "at.\n");
  PutMapConf("map_ip: 127.0.0.1 \r\nmap_port: 6121\r\n");
  EXPECT_TRUE(Told().starts_with("error port [Char and Map]")) << Told();
}

TEST_F(EndpointChecks, OnePortForTwoHostsHoldsUnlessAServerListensAtAllAddresses) {
  PutMapConf("map_ip:10.0.0.1\r\nmap_port:6121\r\n");
  EXPECT_EQ(Told(),
            "warning port [Char and Map] Both have the port 6121, so one that listens at every "
            "address keeps the other from it.\n");
}

TEST_F(EndpointChecks, TwoPortsThatAreMissingAreNoSharedPort) {
  PutCharConf("login_ip:127.0.0.1\r\n");
  EXPECT_EQ(Told(),
            "error port [Login] The port is 0, so nothing can be probed.\n"
            "error port [Char] The port is 0, so nothing can be probed.\n");
}

TEST_F(EndpointChecks, AHostThatDoesNotResolve) {
  PutMapHost(" nowhere.example ");
  EXPECT_EQ(
      Told(),
      "error host [Map] The host \"nowhere.example\" does not resolve, so each probe fails as "
      "if the server were frozen.\n");
  PutMapHost("");
  EXPECT_EQ(Told(),
            "error host [Map] The host \"\" does not resolve, so each probe fails as if the server "
            "were frozen.\n");
}

TEST_F(EndpointChecks, ANameServerThatIsSilentIsWaitedForASecondInSmallPieces) {
  PutMapHost("slow.example");
  machine.network.SetNameServerDelay(SimNetwork::kDeadNameServer);
  EXPECT_EQ(Told(),
            "warning host [Map] The host \"slow.example\" was not resolved within a second, which "
            "is as long as a probe waits for it.\n");
  EXPECT_EQ(machine.network.Waited(), 1000u);
}

TEST_F(EndpointChecks, AnAnswerThatComesWithinTheSecondCounts) {
  PutMapHost("slow.example");
  machine.network.AddServedName("slow.example", {127, 0, 0, 1});
  machine.network.SetNameServerDelay(700);
  EXPECT_EQ(Told(), "");
}

TEST_F(EndpointChecks, AnAddressOfAnotherMachineIsAWarningWhereTheServerIsEndedForIt) {
  PutMapHost("10.0.0.2");
  EXPECT_EQ(
      Told(),
      "warning host [Map] The host \"10.0.0.2\" is an address of another machine. Where no "
      "router leads the probe back to this one, a healthy server is ended again and again.\n");
  machine.SetSetting("MapAutoKillEnabled", "0");
  EXPECT_EQ(Told(),
            "note host [Map] The host \"10.0.0.2\" is an address of another machine, where this "
            "launcher starts and ends nothing.\n");
  PutMapHost("0.0.0.0");
  EXPECT_EQ(
      Told(),
      "error host [Map] The host \"0.0.0.0\" is none that can be connected to, so no probe is "
      "ever answered.\n");
  PutMapHost("10.0.0.1");
  EXPECT_EQ(Told(), "");
  PutMapHost("127.9.9.9");
  EXPECT_EQ(Told(), "");
}

TEST_F(EndpointChecks, APortThatAForeignProgramHolds) {
  machine.processes.Program("other.exe").port = 5121;
  const ProcessId other = machine.processes.StartForeign("other.exe");
  EXPECT_EQ(Told(), "error port-held [Map] \"other.exe\" (process " + std::to_string(other) +
                        ") holds the port 5121.\n");
}

TEST_F(EndpointChecks, AHolderWithoutAName) {
  machine.inspection.HoldPort(5121, 4711);
  EXPECT_EQ(
      Told(),
      "error port-held [Map] A program that the system does not name (process 4711) holds the "
      "port 5121.\n");
}

TEST_F(EndpointChecks, AHolderThatTheSystemDoesNotTellIsTheComponentIfThatRuns) {
  machine.inspection.HoldPort(5121, 0);
  EXPECT_EQ(Told(),
            "error port-held [Map] A program that the system does not name holds the port 5121.\n");
  machine.processes.Program(kMap).port = 0;
  machine.processes.StartForeign(kMap);
  EXPECT_EQ(Told(), "");
}

TEST_F(EndpointChecks, TheComponentItselfHoldsItsPortInAnyLetterCase) {
  machine.processes.Program("MAP-SERVER.EXE").port = 5121;
  machine.processes.StartForeign("MAP-SERVER.EXE");
  EXPECT_EQ(Told(), "");
}

TEST_F(EndpointChecks, AServerOfThatNameFromAnotherFolderHoldsThePortAsAnyOtherProgramDoes) {
  const ProcessId map = machine.processes.StartForeign(kMap, "D:\\other\\");
  const std::string process = "(process " + std::to_string(map) + ")";
  EXPECT_EQ(Told(),
            "error port-held [Map] \"map-server.exe\" " + process +
                " holds the port 5121.\n"
                "warning same-name [Map: map-server.exe " +
                process +
                "] A process of that name runs as D:\\other\\map-server.exe, and \"Stop\" would "
                "end it as well.\n");
}

TEST_F(EndpointChecks, OfTwoServersOfThatNameTheOneThatHoldsThePortIsTold) {
  machine.processes.Program(kMap).port = 0;
  machine.processes.StartForeign(kMap);
  machine.processes.Program(kMap).port = 5121;
  const ProcessId other = machine.processes.StartForeign(kMap, "D:\\other\\");
  EXPECT_TRUE(Told().starts_with("error port-held [Map] \"map-server.exe\" (process " +
                                 std::to_string(other) + ") holds the port 5121.\n"))
      << Told();
}

TEST_F(EndpointChecks, AHolderOfThatNameThatTellsNoPathIsTakenForTheComponent) {
  machine.processes.StartForeign(kMap);
  machine.processes.TheOne(kMap).path.clear();
  EXPECT_EQ(Told(), "");
}

TEST_F(EndpointChecks, NobodyIsAskedForThePortOfAComponentWithoutAnExecutable) {
  machine.SetSetting("MapExe", "no-such");
  machine.processes.Program("other.exe").port = 5121;
  machine.processes.StartForeign("other.exe");
  EXPECT_EQ(Told(), "error executable [Map] No executable is chosen.\n");
}

TEST_F(EndpointChecks, AServerThatDoesNotListenHoldsNoPort) {
  machine.processes.Program("other.exe").port = 5122;
  machine.processes.StartForeign("other.exe");
  EXPECT_EQ(Told(), "");
}

TEST_F(EndpointChecks, APortOfAnotherMachineIsNotLookedFor) {
  PutMapHost("10.0.0.2");
  machine.inspection.HoldPort(5121, 4711);
  EXPECT_EQ(Told().find("port-held"), std::string::npos);
}

TEST_F(EndpointChecks, APortOfAHostThatDoesNotResolveIsNotLookedFor) {
  PutMapHost("nowhere.example");
  machine.inspection.HoldPort(5121, 4711);
  EXPECT_EQ(Told().find("port-held"), std::string::npos);
}

TEST_F(EndpointChecks, AnAnswerThatIsTooShortForAnAddressIsNone) {
  PutMapHost("odd.example");
  machine.network.AddServedName("odd.example", {127, 0, 0});
  EXPECT_TRUE(Told().starts_with("error host [Map] The host \"odd.example\" does not resolve"))
      << Told();
}

TEST(ListenerAt, IsAtEveryAddressOrAtThisOne) {
  EXPECT_TRUE(ListenerAt({{0, 5121, 1}}, 7, 5121));
  EXPECT_TRUE(ListenerAt({{7, 5121, 1}}, 7, 5121));
  EXPECT_FALSE(ListenerAt({{8, 5121, 1}}, 7, 5121));
  EXPECT_FALSE(ListenerAt({{7, 5122, 1}}, 7, 5121));
}

}  // namespace
}  // namespace tarvo
