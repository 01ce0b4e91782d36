#include "platform/windows/processes_windows.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/windows/handle_windows.h"
#include "platform/windows/system_message_windows.h"
#include "tests/servers/server_commands.h"
#include "tests/windows/child_roles.h"
#include "tests/windows/running_server.h"
#include "tests/windows/test_folder.h"

namespace tarvo {
namespace {

using test::RunningServer;
using test::TestFolder;

class WindowsProcessesTest : public testing::Test {
 protected:
  /// The name by which the list knows a process; "" when it does not.
  std::string NameOf(ProcessId id) {
    for (const ProcessEntry& entry : processes_.Snapshot()) {
      if (entry.id == id) return entry.executable;
    }
    return "";
  }
  int CountOf(const std::string& name) {
    int count = 0;
    for (const ProcessEntry& entry : processes_.Snapshot()) count += entry.executable == name;
    return count;
  }

  TestFolder folder_;
  WindowsProcesses processes_;
};

TEST_F(WindowsProcessesTest, ListsThisProgramByItsBareName) {
  const std::string path = test::OwnPath();
  EXPECT_EQ(NameOf(GetCurrentProcessId()), path.substr(path.rfind('\\') + 1));
}

TEST_F(WindowsProcessesTest, LaunchesAServerThatFindsItsConfInTheCurrentFolder) {
  const RunningServer server("login");
  ASSERT_NE(server.Id(), 0U);
  EXPECT_EQ(NameOf(server.Id()), "login-server.exe");
  EXPECT_EQ(server.Tell(sample::kState), static_cast<LRESULT>(sample::PortState::Answering));
  EXPECT_EQ(IsWindowVisible(reinterpret_cast<HWND>(server.Window())), 0);
}

TEST_F(WindowsProcessesTest, TheChildSeesThePathUnquotedAndIsHidden) {
  const std::string own = folder_.File("reporting child.exe");
  ASSERT_NE(CopyFileA(test::OwnPath().c_str(), own.c_str(), TRUE), 0);
  SetEnvironmentVariableA(test::kRoleVariable, "report seen.txt");
  const auto child = processes_.LaunchHidden(own);
  SetEnvironmentVariableA(test::kRoleVariable, nullptr);
  ASSERT_NE(child.id, 0U);
  const std::string expected = own + "\n" + folder_.Path() + "\n0\n";
  EXPECT_TRUE(test::Within(5000, [&] { return NameOf(child.id).empty(); }));
  EXPECT_EQ(test::BytesOf(folder_.File("seen.txt")), expected);
}

TEST_F(WindowsProcessesTest, ABlankInThePathNamesNoOtherProgram) {
  // The command line alone would start "my.exe" with "server.exe" as its argument.
  ASSERT_NE(CopyFileA(test::SampleServerPath("map").c_str(), "my.exe", TRUE), 0);
  EXPECT_EQ(processes_.LaunchHidden(folder_.File("my server.exe")).id, 0U);
  EXPECT_EQ(CountOf("my.exe"), 0);
}

TEST_F(WindowsProcessesTest, TellsAMissingFileFromEveryOtherReason) {
  const std::string held = folder_.Write("held.exe", "in the making");
  const KernelHandle writer(
      CreateFileA(held.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(writer.Valid());
  const struct {
    std::string path;
    bool missing;
    DWORD error;
  } cases[] = {{folder_.File("missing.exe"), true, ERROR_FILE_NOT_FOUND},
               {folder_.File("no folder\\missing.exe"), true, ERROR_PATH_NOT_FOUND},
               {held, false, ERROR_SHARING_VIOLATION},
               {folder_.Write("text.exe", "no program"), false, ERROR_BAD_EXE_FORMAT},
               {folder_.File("a|b.exe"), false, ERROR_INVALID_NAME}};
  for (const auto& c : cases) {
    const LaunchResult result = processes_.LaunchHidden(c.path);
    EXPECT_EQ(result.id, 0U) << c.path;
    EXPECT_EQ(result.fileMissing, c.missing) << c.path;
    EXPECT_EQ(result.reason.number, static_cast<int>(c.error)) << c.path;
    EXPECT_EQ(result.reason.description, SystemMessage(c.error)) << c.path;
  }
  const LaunchResult noFile = processes_.LaunchHidden(folder_.Path());
  EXPECT_EQ(noFile.id, 0U);
  EXPECT_FALSE(noFile.fileMissing);
  EXPECT_EQ(processes_.LaunchHidden("").id, 0U);
}

TEST_F(WindowsProcessesTest, ErrorDialogsAreOffForThisProgramAndItsChildren) {
  constexpr UINT kOff = SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX;
  const UINT former = SetErrorMode(0);
  processes_.TurnErrorDialogsOff();
  const UINT own = GetErrorMode();
  const RunningServer child("map");
  const auto inherited = static_cast<UINT>(child.Tell(sample::kErrorMode));
  SetErrorMode(former);
  EXPECT_EQ(own, kOff);
  if (GetProcAddress(GetModuleHandleA("ntdll"), "wine_get_version") != nullptr) {
    GTEST_SKIP() << "under Wine no child inherits an error mode";
  }
  EXPECT_EQ(inherited, kOff);
}

TEST_F(WindowsProcessesTest, AServerThatCommitsAFaultEndsWithItsCode) {
  const RunningServer server("map");
  PostMessageA(reinterpret_cast<HWND>(server.Window()), sample::kFault, 0, 0);
  EXPECT_EQ(WaitForSingleObject(server.Process(), 5000), DWORD{WAIT_OBJECT_0});
  EXPECT_EQ(server.ExitCode(), DWORD{EXCEPTION_ACCESS_VIOLATION});
}

TEST_F(WindowsProcessesTest, EndsAProcessWithCodeZero) {
  const RunningServer server("char");
  ASSERT_TRUE(server.Runs());
  processes_.End(server.Id());
  EXPECT_EQ(WaitForSingleObject(server.Process(), 5000), DWORD{WAIT_OBJECT_0});
  EXPECT_EQ(server.ExitCode(), 0U);
  EXPECT_TRUE(test::Within(5000, [&] { return NameOf(server.Id()).empty(); }));
}

TEST_F(WindowsProcessesTest, EndingOrPrioritisingNobodyDoesNothing) {
  for (const ProcessId nobody : {0U, 0xFFFFFFF0U}) {
    processes_.End(nobody);
    processes_.ChangePriority(nobody, HIGH_PRIORITY_CLASS);
  }
  EXPECT_EQ(GetPriorityClass(GetCurrentProcess()), DWORD{NORMAL_PRIORITY_CLASS});
}

TEST_F(WindowsProcessesTest, AProcessThatRefusesToDieLivesOn) {
  const RunningServer server("map", "refuse-to-die\r\n");
  ASSERT_TRUE(server.Runs());
  processes_.End(server.Id());
  EXPECT_EQ(WaitForSingleObject(server.Process(), 500), DWORD{WAIT_TIMEOUT});
  EXPECT_EQ(NameOf(server.Id()), "map-server.exe");
}

TEST_F(WindowsProcessesTest, ChangesThePriorityClass) {
  const RunningServer server("login");
  for (const int each : {IDLE_PRIORITY_CLASS, BELOW_NORMAL_PRIORITY_CLASS, NORMAL_PRIORITY_CLASS,
                         ABOVE_NORMAL_PRIORITY_CLASS, HIGH_PRIORITY_CLASS}) {
    processes_.ChangePriority(server.Id(), static_cast<DWORD>(each));
    EXPECT_EQ(GetPriorityClass(server.Process()), static_cast<DWORD>(each));
  }
  processes_.ChangePriority(server.Id(), 0);
  EXPECT_EQ(GetPriorityClass(server.Process()), DWORD{HIGH_PRIORITY_CLASS});
}

TEST_F(WindowsProcessesTest, NoCallKeepsAHandle) {
  const RunningServer server("login");
  const auto useAll = [&] {
    processes_.Snapshot();
    processes_.ChangePriority(server.Id(), NORMAL_PRIORITY_CLASS);
    processes_.LaunchHidden(folder_.File("missing.exe"));
    const auto second = processes_.LaunchHidden(folder_.File("login-server.exe"));
    processes_.End(second.id);
  };
  useAll();
  DWORD before = 0;
  GetProcessHandleCount(GetCurrentProcess(), &before);
  for (int round = 0; round < 10; ++round) useAll();
  DWORD after = 0;
  GetProcessHandleCount(GetCurrentProcess(), &after);
  EXPECT_EQ(after, before);
}

}  // namespace
}  // namespace tarvo
