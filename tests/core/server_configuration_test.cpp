#include "core/server_configuration.h"

#include <gtest/gtest.h>

#include "core/whole_file.h"
#include "support/runtime_error.h"
#include "tests/simulation/sim_machine.h"

namespace tarvo {
namespace {

class Configuration : public ::testing::Test {
 protected:
  ConfigurationResult Read() { return ReadServerConfiguration(machine.files, machine.files, root); }

  /// Reads this char conf beside an empty map conf.
  ServerConfiguration ReadChar(const std::string& text) {
    machine.PutConf("C:\\srv", text, "");
    return Read().configuration;
  }
  ServerConfiguration ReadMap(const std::string& text) {
    machine.PutConf("C:\\srv", "", text);
    return Read().configuration;
  }
  /// "13 login_port: x": number and source of the fault that the char conf raises, or "none".
  std::string FaultOfChar(const std::string& text) {
    try {
      ReadChar(text);
    } catch (const RuntimeError& fault) {
      return std::to_string(fault.Number()) + " " + fault.Source();
    }
    return "none";
  }

  SimMachine machine;
  ServerRoot root{"C:\\srv\\tarvo-launcher.exe", machine.codePage};
};

TEST_F(Configuration, TakesEachEndpointFromItsFile) {
  machine.PutConf("C:\\srv",
                  "login_ip:10.0.0.1\r\nlogin_port:1\r\nchar_ip:10.0.0.2\r\nchar_port:2\r\n"
                  "map_ip:10.0.0.9\r\nmap_port:9\r\n",
                  "map_ip:10.0.0.3\r\nmap_port:3\r\nchar_ip:10.0.0.8\r\nchar_port:8\r\n"
                  "login_ip:10.0.0.7\r\nlogin_port:7\r\nserver_name: Other\r\n");
  machine.files.Put("C:\\srv\\conf\\login_athena.conf", "login_port: 99\r\nlogin_ip:1.1.1.1\r\n");
  const ConfigurationResult result = Read();
  EXPECT_EQ(result.refusal, "");
  const auto& endpoints = result.configuration.endpoints;
  EXPECT_EQ(endpoints[ComponentKind::Login].host, "10.0.0.1");
  EXPECT_EQ(endpoints[ComponentKind::Login].port, 1);
  EXPECT_EQ(endpoints[ComponentKind::Char].host, "10.0.0.2");
  EXPECT_EQ(endpoints[ComponentKind::Char].port, 2);
  EXPECT_EQ(endpoints[ComponentKind::Map].host, "10.0.0.3");
  EXPECT_EQ(endpoints[ComponentKind::Map].port, 3);
  EXPECT_FALSE(result.configuration.serverName);
  EXPECT_EQ(machine.recorder.CountOf("files.read(C:\\srv\\conf\\login_athena.conf"), 0u);
}

TEST_F(Configuration, AnAbsentKeyKeepsHostAndPortOfTheBeginning) {
  const ServerConfiguration read = ReadChar("// nothing here\r\n");
  for (ComponentKind kind : kComponents) {
    EXPECT_EQ(read.endpoints[kind].host, "127.0.0.1");
    EXPECT_EQ(read.endpoints[kind].port, 0);
  }
}

TEST_F(Configuration, AKeyCountsAtTheVeryStartOfALineInItsOwnLetters) {
  const struct {
    const char* line;
    std::int32_t port;
  } cases[] = {
      {"login_port:6900", 6900},
      {"login_port: 6900", 6900},
      {"login_port:\t6900 \t", 6900},
      {"login_port:&H1AF4", 6900},
      {"login_port: 6899.5", 6900},
      {"login_port: 6900.5", 6900},
      {"login_port: -1", -1},
      {"login_port: 70000", 70000},
      {"Login_Port: 6900", 0},
      {" login_port: 6900", 0},
      {"//login_port: 6900", 0},
      {"login_port : 6900", 0},
      {"login_port 6900", 0},
      {"xlogin_port: 6900", 0},
      {"login_por", 0},
      {"", 0},
      {"login_port:2147483647", INT32_MAX},
  };
  for (const auto& c : cases) {
    const auto read = ReadChar(std::string("// x\r\n") + c.line + "\r\n// y\r\n");
    EXPECT_EQ(read.endpoints[ComponentKind::Login].port, c.port) << c.line;
  }
}

TEST_F(Configuration, OfSeveralLinesWithOneKeyTheLastCounts) {
  const std::string first =
      "login_port: 1\r\nlogin_ip:a\r\nchar_port: 2\r\nchar_ip:b\r\nserver_name: A\r\n";
  const std::string second =
      "login_port: 3\r\nlogin_ip:c\r\nchar_port: 4\r\nchar_ip:d\r\nserver_name: B\r\n";
  const auto read = ReadChar(first + second + "//char_port: 5\r\n");
  EXPECT_EQ(read.endpoints[ComponentKind::Login].port, 3);
  EXPECT_EQ(read.endpoints[ComponentKind::Login].host, "c");
  EXPECT_EQ(read.endpoints[ComponentKind::Char].port, 4);
  EXPECT_EQ(read.endpoints[ComponentKind::Char].host, "d");
  EXPECT_EQ(read.serverName, "B");
  const auto map = ReadMap("map_port: 1\r\nmap_ip:a\r\nmap_port: 2\r\nmap_ip:b\r\n");
  EXPECT_EQ(map.endpoints[ComponentKind::Map].port, 2);
  EXPECT_EQ(map.endpoints[ComponentKind::Map].host, "b");
}

TEST_F(Configuration, AHostIsKeptAsItFollowsItsKey) {
  for (const char* host :
       {"10.0.0.5", " 10.0.0.5", "\t10.0.0.5 ", "my host // x", "", " ", "caf\xE9.example"}) {
    const std::string line = std::string("ip:") + host + "\r\n";
    EXPECT_EQ(ReadChar("login_" + line).endpoints[ComponentKind::Login].host, host) << host;
    EXPECT_EQ(ReadChar("char_" + line).endpoints[ComponentKind::Char].host, host) << host;
    EXPECT_EQ(ReadMap("map_" + line).endpoints[ComponentKind::Map].host, host) << host;
  }
}

TEST_F(Configuration, TheServersNameLosesTheBlanksAroundIt) {
  const struct {
    const char* line;
    const char* name;
  } cases[] = {
      {"server_name: Northwind ", "Northwind"},
      {"server_name:North  wind", "North  wind"},
      {"server_name:   ", ""},
      {"server_name:", ""},
      {"server_name:\tTab", "\tTab"},
      {"server_name: \xC9lys\xE9", "\xC9lys\xE9"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(ReadChar(std::string(c.line) + "\r\n").serverName, c.name) << c.line;
  }
}

TEST_F(Configuration, APortThatIsNoNumberIsAFaultThatNamesItsLine) {
  for (const char* line : {"login_port:", "login_port: ", "char_port: 6121 // main",
                           "char_port: 6,121", "login_port: abc", "char_port: &H"}) {
    EXPECT_EQ(FaultOfChar(std::string(line) + "\r\n"), std::string("13 ") + line);
  }
  for (const char* line :
       {"login_port: 2147483648", "char_port: -2147483649", "char_port: 99999999999999999999"}) {
    EXPECT_EQ(FaultOfChar(std::string(line) + "\r\n"), std::string("6 ") + line);
  }
}

TEST_F(Configuration, ABadPortIsAFaultBeforeTheNextFileIsMissed) {
  machine.PutConf("C:\\srv", "login_port: x\r\n", "");
  machine.files.Remove("C:\\srv\\conf\\map_athena.conf");
  EXPECT_THROW(Read(), RuntimeError);
}

TEST_F(Configuration, ABadPortIsAFaultEvenWhenALaterLineWouldMendIt) {
  EXPECT_EQ(FaultOfChar("char_port: x\r\nchar_port: 6121\r\n"), "13 char_port: x");
}

TEST_F(Configuration, BareLineFeedsMakeOneSingleLine) {
  EXPECT_EQ(ReadChar("login_ip:a\nlogin_port: 1\n").endpoints[ComponentKind::Login].host,
            "a\nlogin_port: 1\n");
  EXPECT_EQ(ReadChar("// x\nlogin_port: 1\n").endpoints[ComponentKind::Login].port, 0);
  EXPECT_EQ(FaultOfChar("login_port: 1\nchar_port: 2\n"), "13 login_port: 1\nchar_port: 2\n");
}

TEST_F(Configuration, EveryTruncationOfAConfIsReadOrRaisesItsFault) {
  const std::string whole = UsualCharConf();
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    const std::string text = whole.substr(0, size);
    const bool emptyPort = text.ends_with("_port:") || text.ends_with("_port: ");
    // A CR without its LF belongs to the port that it follows.
    const bool halfLineEnd = text.ends_with("6900\r") || text.ends_with("6121\r");
    EXPECT_EQ(FaultOfChar(text) != "none", emptyPort || halfLineEnd) << '"' << text << '"';
  }
}

TEST_F(Configuration, AFileWithoutALastLineEndAndOneOfZeroBytesAreRead) {
  EXPECT_EQ(ReadChar("char_port: 6121").endpoints[ComponentKind::Char].port, 6121);
  EXPECT_EQ(ReadMap("map_port: 5121").endpoints[ComponentKind::Map].port, 5121);
  EXPECT_EQ(ReadChar("").endpoints[ComponentKind::Char].port, 0);
  EXPECT_EQ(Read().refusal, "");
}

TEST_F(Configuration, AConfOfAHundredMegabytesIsReadToItsLastLine) {
  const std::string filler = "// " + std::string(995, '\xE9') + "\r\n";
  std::string text;
  text.reserve(100001000);
  while (text.size() < 100000000) text += filler;
  text += "char_port: 6122\r\nserver_name: Far down";
  const ServerConfiguration read = ReadChar(text);
  EXPECT_EQ(read.endpoints[ComponentKind::Char].port, 6122);
  EXPECT_EQ(read.serverName, "Far down");
}

TEST_F(Configuration, BytesOfEveryValueComeOutAsTheyWentIn) {
  std::string every;
  for (int byte = 0; byte < 256; ++byte) {
    if (byte != '\r' && byte != '\n') every += static_cast<char>(byte);
  }
  EXPECT_EQ(ReadChar("char_ip:" + every + "\r\n").endpoints[ComponentKind::Char].host, every);
}

constexpr char kWrongPlace[] =
    "Please, copy and start this application inside your eAthena / Freya Server Root!";

TEST_F(Configuration, OutsideAServerRootNothingIsRead) {
  machine.files.Remove("C:\\srv\\conf\\login_athena.conf");
  EXPECT_EQ(Read().refusal, kWrongPlace);
  EXPECT_EQ(machine.recorder.CountOf("files.read"), 0u);
}

TEST_F(Configuration, AMissingOrUnreadableConfIsToldWithTheRootBeforeItsName) {
  for (const char* name : {"char_athena.conf", "map_athena.conf"}) {
    SimMachine missing;
    missing.files.Remove(std::string("C:\\srv\\conf\\") + name);
    const std::string refusal = std::string("C:\\srv\\") + name + " file can't be loaded";
    EXPECT_EQ(ReadServerConfiguration(missing.files, missing.files, root).refusal, refusal);
    SimMachine locked;
    locked.files.LockForReading(std::string("C:\\srv\\conf\\") + name);
    EXPECT_EQ(ReadServerConfiguration(locked.files, locked.files, root).refusal,
              refusal + "\r\nC:\\srv\\conf\\" + name +
                  " can't be read: Access is denied (system error 5)");
  }
}

TEST_F(Configuration, AFolderThatMayNotBeReadIsNamedAsTheCause) {
  machine.files.LockForReading("C:\\srv\\conf\\login_athena.conf");
  machine.files.HideLocked();
  EXPECT_EQ(Read().refusal, std::string(kWrongPlace) +
                                "\r\nC:\\srv\\conf\\login_athena.conf can't be read: Access is "
                                "denied (system error 5)");
}

TEST_F(Configuration, APathThatIsTooLongIsNamedAsTheCause) {
  const std::size_t rest = std::string("C:\\\\conf\\login_athena.conf").size();
  for (const std::size_t longest : {259U, 260U}) {
    const ServerRoot deep("C:\\" + std::string(longest - rest, 'd') + "\\l.exe", machine.codePage);
    EXPECT_EQ(ReadServerConfiguration(machine.files, machine.files, deep).refusal,
              longest == 259
                  ? std::string(kWrongPlace)
                  : std::string(kWrongPlace) + "\r\nThe path of this folder is too long.");
  }
}

TEST_F(Configuration, InADrivesRootTheRefusalHasOneBackslash) {
  machine.PutConf("C:", "", "");
  machine.files.Remove("C:\\conf\\map_athena.conf");
  EXPECT_EQ(ReadServerConfiguration(machine.files, machine.files,
                                    ServerRoot("C:\\l.exe", machine.codePage))
                .refusal,
            "C:\\map_athena.conf file can't be loaded");
}

TEST_F(Configuration, EveryExecutableOfTheRootGoesIntoTheThreeChoosersInListingOrder) {
  machine.files.Put("C:\\srv\\Extra.EXE", "");
  machine.files.Put("C:\\srv\\notes.exe.txt", "");
  machine.files.Put("C:\\srv\\tools\\inner.exe", "");
  PerComponent<DropDownList> Exes;
  ListExecutables(machine.files, root, Exes);
  const std::vector<std::string> expected = {"tarvo-launcher.exe", "login-server.exe",
                                             "char-server.exe", "map-server.exe", "Extra.EXE"};
  for (const DropDownList& chooser : Exes) {
    EXPECT_EQ(chooser.Items(), expected);
    EXPECT_EQ(chooser.ListIndex(), -1);
  }
}

TEST_F(Configuration, AFileIsReadWholeOrLeavesTheText) {
  machine.files.Put("C:\\srv\\a.conf", "one\r\n\xF1\n");
  machine.files.Put("C:\\srv\\b.conf", "two");
  machine.files.LockForReading("C:\\srv\\b.conf");
  std::string text = "before";
  EXPECT_FALSE(ReadWholeFile(machine.files, "C:\\srv\\none.conf", text));
  EXPECT_FALSE(ReadWholeFile(machine.files, "C:\\srv\\b.conf", text));
  EXPECT_EQ(text, "before");
  EXPECT_TRUE(ReadWholeFile(machine.files, "C:\\srv\\a.conf", text));
  EXPECT_EQ(text, "one\r\n\xF1\n");
}

TEST_F(Configuration, ARootWithoutExecutablesLeavesTheChoosersEmpty) {
  PerComponent<DropDownList> Exes;
  ListExecutables(machine.files, ServerRoot("D:\\empty\\l.exe", machine.codePage), Exes);
  for (const DropDownList& chooser : Exes) EXPECT_TRUE(chooser.Items().empty());
}

}  // namespace
}  // namespace tarvo
