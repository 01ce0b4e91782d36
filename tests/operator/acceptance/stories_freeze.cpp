// Servers that live and do not answer.

// Before windows.h, which brings an older one.
#include <winsock2.h>

#include "tests/operator/acceptance/desk.h"
#include "tests/operator/acceptance/files.h"
#include "tests/operator/acceptance/stories.h"

namespace tarvo::acceptance {
namespace {

std::string AddressOf(const Desk& desk, int index, const std::string& host = "127.0.0.1") {
  return host + ":" + std::to_string(desk.TheRoot().Port(index));
}

void WatchLogin(Desk& desk, const char* time) {
  desk.WriteSettings(
      {{"LoginChkInterval", "1000"}, {"LoginTimeout", time}, {"LoginAutoKillEnabled", "1"}});
}

/// On Windows a connect tries a closed port and a full queue again, for longer than a probe lasts.
void ExpectReason(const Desk& desk, const std::string& state, const std::string& reasonUnderWine) {
  const std::string start = "Login: " + state + "|" + AddressOf(desk, 0) + ": ";
  if (UnderWine()) return desk.ExpectTip(0, start + reasonUnderWine);
  desk.ExpectTipOneOf(0, {start + "refused", start + "no answer in 1 s"});
}

/// The server does not answer from now on; it is killed and started anew.
void ExpectKillAndRestart(Desk& desk, const std::string& reason) {
  const DWORD login = desk.Process("login");
  desk.ExpectLog(seconds(10), "Login server freeze!... waiting...");
  desk.ExpectLight(seconds(5), 0, Light::Trouble);
  ExpectReason(desk, "trouble", reason);
  desk.ExpectLog(seconds(15), "Shuting down Login...");
  desk.ExpectLog(seconds(10), "Login Server crashed, restarting...");
  desk.ExpectCount("login", 1);
  Expect(desk.Process("login") != login, "the same process");
  desk.ExpectLogCount(seconds(0), "freeze!", 1);
  desk.ExpectLogCount(seconds(15), "Listening Login Server", 2);
  desk.ExpectLight(seconds(5), 0, Light::Healthy);
}

void StartLogin(Desk& desk) {
  desk.Click("bStart", 0);
  desk.ExpectLog(seconds(10), "Listening Login Server");
}

}  // namespace

void FreezeKilled(Desk& desk) {
  WatchLogin(desk, "5");
  desk.StartLauncher();
  desk.ExpectLog(seconds(5), "Login Check Interval: 1 seconds.");
  StartLogin(desk);
  desk.Tell("login", sample::kClosePort);
  ExpectKillAndRestart(desk, "refused");
  desk.Click("bStart", 4);
  desk.CloseLauncher();
}

void FreezeQueueFull(Desk& desk) {
  WatchLogin(desk, "5");
  desk.StartLauncher();
  StartLogin(desk);
  desk.ExpectLight(seconds(5), 0, Light::Healthy);
  desk.ExpectTip(0, "Login: healthy");
  desk.Tell("login", sample::kHang);
  ExpectKillAndRestart(desk, "no answer in 1 s");
  desk.ExpectWithin(seconds(10), "Login server freeze!", "Shuting down Login...");
  desk.ExpectWithin(seconds(5), "Shuting down Login...", "Login Server Started!");
  desk.ExpectTip(0, "Login: healthy");
  desk.Click("bStart", 4);
  desk.CloseLauncher();
}

void FreezeReturns(Desk& desk) {
  desk.WriteSettings(
      {{"CharChkInterval", "1000"}, {"CharTimeout", "60"}, {"CharAutoKillEnabled", "1"}});
  desk.StartLauncher();
  desk.Click("bStart", 3);
  desk.ExpectLog(seconds(15), "Listening Char Server");
  const DWORD charServer = desk.Process("char");
  desk.Tell("char", sample::kClosePort);
  desk.ExpectLog(seconds(10), "Char server freeze!... waiting...");
  desk.ExpectLight(seconds(5), 1, Light::Trouble);
  desk.Tell("char", sample::kAnswer);
  desk.ExpectLog(seconds(10), "Char server is back!");
  // Char's return turns the login server's light; its own follows with its next probe.
  desk.ExpectLight(seconds(5), 0, Light::Trouble);
  desk.ExpectLight(seconds(5), 1, Light::Healthy);
  Expect(desk.Process("char") == charServer, "another process");
  desk.ExpectNoLog("Shuting down");
  desk.Click("bStart", 4);
  desk.CloseLauncher();
}

/// Its grace is over before it listens: it is told as frozen and comes back, and is not killed.
void LateListener(Desk& desk) {
  WatchLogin(desk, "60");
  WriteBytes(desk.TheRoot().Path("login-server.behaviour"), "start-delay 8000\r\n");
  desk.StartLauncher();
  StartLogin(desk);
  const DWORD login = desk.Process("login");
  desk.ExpectLog(seconds(10), "Login server freeze!... waiting...");
  // A grace ends with a green light, answered or not; the tool tip tells.
  ExpectReason(desk, "healthy", "refused");
  desk.ExpectLog(seconds(15), "Login server is back!");
  desk.ExpectLight(seconds(5), 0, Light::Healthy);
  desk.ExpectTip(0, "Login: healthy");
  Expect(desk.Process("login") == login, "another process");
  desk.ExpectNoLog("Shuting down");
  desk.Click("bStart", 0);
  desk.CloseLauncher();
}

namespace {

/// Whether a connect to the address is neither taken nor refused for a second.
bool KeepsSilent(const std::string& address, int port) {
  const SOCKET socket = ::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
  u_long nonBlocking = 1;
  ioctlsocket(socket, static_cast<long>(FIONBIO), &nonBlocking);
  sockaddr_in target{};
  target.sin_family = AF_INET;
  target.sin_port = htons(static_cast<u_short>(port));
  target.sin_addr.s_addr = inet_addr(address.c_str());
  bool silent = connect(socket, reinterpret_cast<sockaddr*>(&target), sizeof target) != 0 &&
                WSAGetLastError() == WSAEWOULDBLOCK;
  fd_set taken{}, refused{};
  taken.fd_count = refused.fd_count = 1;
  taken.fd_array[0] = refused.fd_array[0] = socket;
  timeval second{1, 0};
  silent = silent && select(0, nullptr, &taken, &refused, &second) == 0;
  closesocket(socket);
  return silent;
}

void ExpectReasons(const Desk& desk, const std::string& silent) {
  desk.ExpectTipOneOf(1, {"Char: healthy|" + AddressOf(desk, 1, silent) + ": no answer in 1 s",
                          "Char: trouble|" + AddressOf(desk, 1, silent) + ": no answer in 1 s"});
  const std::string map = AddressOf(desk, 2, "no-such-host.invalid") + ": ";
  std::vector<std::string> reasons;
  for (const char* state : {"Map: healthy|", "Map: trouble|"}) {
    reasons.push_back(state + map + "the name is unknown");
    // A machine's own name server may take its time; the tests' machine has none to ask.
    if (!UnderWine()) reasons.push_back(state + map + "no answer in 1 s from the name server");
  }
  desk.ExpectTipOneOf(2, reasons);
}

}  // namespace

void SilentAddress(Desk& desk) {
  const std::string& silent = desk.TheSurroundings().silentAddress;
  if (!KeepsSilent(silent, desk.TheRoot().Port(1))) {
    throw Skipped(silent + " does not keep silent here; --silent ADDRESS names one that does");
  }
  desk.TheRoot().SetConf("char_athena.conf", "char_ip", silent);
  desk.TheRoot().SetConf("map_athena.conf", "map_ip", "no-such-host.invalid");
  WatchLogin(desk, "300");
  desk.WriteSettings({{"CharTimeout", "300"},
                      {"MapTimeout", "300"},
                      {"CharAutoKillEnabled", "1"},
                      {"MapAutoKillEnabled", "1"}});
  desk.StartLauncher();
  desk.Click("bStart", 3);
  desk.ExpectLog(seconds(15), "Listening Login Server");
  desk.ExpectTip(0, "Login: healthy");
  desk.ExpectLog(seconds(30), "Map server is freeze!... waiting...");
  desk.Tell("login", sample::kClosePort);
  desk.ExpectLog(seconds(10), "Login server freeze!... waiting...");
  ExpectReason(desk, "trouble", "refused");
  ExpectReasons(desk, silent);
  desk.Tell("login", sample::kAnswer);
  desk.ExpectLog(seconds(10), "Login server is back!");
  desk.ExpectTip(0, "Login: healthy");
  desk.Click("bStart", 1);
  desk.ExpectTip(1, "Char: not watched");
  desk.Click("bStart", 4);
  desk.CloseLauncher();
}

}  // namespace tarvo::acceptance
