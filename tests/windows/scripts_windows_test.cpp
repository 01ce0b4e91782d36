#include "platform/windows/scripts_windows.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/windows/instance_lock_windows.h"
#include "tests/windows/child_roles.h"
#include "tests/windows/test_folder.h"

namespace tarvo {
namespace {

using test::TestFolder;

constexpr unsigned kLongEnough = 20000;

class WindowsScriptsTest : public testing::Test {
 protected:
  bool Over(ScriptRun run) {
    return test::Within(kLongEnough, [&] { return !scripts_.Runs(run); });
  }
  /// What a script in that folder wrote of itself: its variables, where it is, where it stands.
  std::string SeenBy(const std::string& path, const std::vector<ScriptVariable>& variables) {
    const ScriptRun run = scripts_.Start(path, variables);
    EXPECT_NE(run, 0U);
    EXPECT_TRUE(Over(run));
    return test::BytesOf(path.substr(0, path.rfind('\\')) + "\\seen.txt");
  }
  std::string WriteIn(const std::string& folder, const std::string& text) {
    folder_.MakeFolder(folder);
    return folder_.Write(folder + "\\on-event.cmd", text);
  }

  TestFolder folder_;
  WindowsScripts scripts_;
};

constexpr char kReport[] =
    "@echo off\r\n"
    ">>seen.txt echo [%TARVO_EVENT%] [%TARVO_TEXT%]\r\n"
    ">>seen.txt echo [%~dp0]\r\n";

TEST_F(WindowsScriptsTest, RunInTheirFolderWithTheirVariables) {
  const std::string path = folder_.Write("on-event.cmd", kReport);
  EXPECT_EQ(SeenBy(path, {{"TARVO_EVENT", "crashed"}, {"TARVO_TEXT", "Map (a) server!"}}),
            "[crashed] [Map (a) server!]\r\n[" + folder_.Path() + "\\]\r\n");
}

TEST_F(WindowsScriptsTest, RunFromFoldersWhoseNamesAnInterpreterWouldReadOtherwise) {
  for (const char* name : {"a b", "a & b", "a (b)", "a&b", "(a) ^ b;c,d=e", "100% %PATH% c",
                           "it's !PATH!", "S\xE3o Ga\xE7o"}) {
    const std::string path = WriteIn(name, kReport);
    const std::string seen = SeenBy(path, {{"TARVO_EVENT", "back"}, {"TARVO_TEXT", "x"}});
    EXPECT_EQ(seen.substr(0, 14), "[back] [x]\r\n[" + folder_.Path().substr(0, 1)) << name;
  }
}

TEST_F(WindowsScriptsTest, SeeTheProgramsEnvironmentAndTheirOwnVariablesFirst) {
  SetEnvironmentVariableA("tarvo_event", "inherited");
  SetEnvironmentVariableA("TARVO_TEXT", "text");
  const std::string seen =
      SeenBy(folder_.Write("on-event.cmd", kReport), {{"TARVO_EVENT", "frozen"}});
  SetEnvironmentVariableA("tarvo_event", nullptr);
  SetEnvironmentVariableA("TARVO_TEXT", nullptr);
  EXPECT_EQ(seen.substr(0, seen.find('\r')), "[frozen] [text]");
}

TEST_F(WindowsScriptsTest, RunByTheSystemsInterpreterAndByNoOtherOfThatName) {
  // A program of the test's own, which would report.
  ASSERT_NE(CopyFileA(test::OwnPath().c_str(), folder_.File("cmd.exe").c_str(), TRUE), 0);
  char path[32767] = {};
  GetEnvironmentVariableA("PATH", path, sizeof(path));
  char interpreter[MAX_PATH] = {};
  GetEnvironmentVariableA("COMSPEC", interpreter, sizeof(interpreter));
  SetEnvironmentVariableA("PATH", folder_.Path().c_str());
  SetEnvironmentVariableA("COMSPEC", folder_.File("cmd.exe").c_str());
  const std::string script = folder_.Write("on-event.cmd", kReport);
  const std::string seen =
      SeenBy(script, {{"TARVO_EVENT", "killed"}, {test::kRoleVariable, "report planted.txt"}});
  SetEnvironmentVariableA("PATH", path);
  SetEnvironmentVariableA("COMSPEC", interpreter);
  EXPECT_EQ(seen.substr(0, 8), "[killed]");
  EXPECT_EQ(test::BytesOf(folder_.File("planted.txt")), "");
}

TEST_F(WindowsScriptsTest, AreNotWaitedForAndEndWithAllThatTheyStarted) {
  const std::string script = folder_.Write(
      "on-event.cmd", "@echo off\r\n\"" + test::OwnPath() + "\"\r\n>after.txt echo after\r\n");
  const ScriptRun run = scripts_.Start(script, {{test::kRoleVariable, "hold scripts-test"}});
  ASSERT_NE(run, 0U);
  ASSERT_TRUE(test::Within(kLongEnough, [&] {
    return GetFileAttributesA(folder_.File("scripts-test.held").c_str()) != INVALID_FILE_ATTRIBUTES;
  }));
  EXPECT_TRUE(scripts_.Runs(run));
  scripts_.End(run);
  EXPECT_TRUE(Over(run));
  WindowsInstanceLock lock;  // The child held it as long as it lived.
  EXPECT_TRUE(lock.Acquire("scripts-test"));
  EXPECT_EQ(test::BytesOf(folder_.File("after.txt")), "");
}

TEST_F(WindowsScriptsTest, AreThereAsLongAsAnythingThatTheyStarted) {
  const std::string script =
      folder_.Write("on-event.cmd", "@start /b \"\" \"" + test::OwnPath() + "\"\r\n");
  const ScriptRun run =
      scripts_.Start(script, {{test::kRoleVariable, "hold-briefly scripts-brief"}});
  ASSERT_TRUE(test::Within(kLongEnough, [&] {
    return GetFileAttributesA(folder_.File("scripts-brief.held").c_str()) !=
           INVALID_FILE_ATTRIBUTES;
  }));
  EXPECT_TRUE(scripts_.Runs(run));
  EXPECT_TRUE(Over(run));
}

TEST_F(WindowsScriptsTest, AreLeftAloneByTheEndOfTheProgram) {
  const std::string script =
      folder_.Write("on-event.cmd", "@\"" + test::OwnPath() + "\"\r\n@>>seen.txt echo went on\r\n");
  {
    WindowsScripts brief;
    ASSERT_NE(brief.Start(script, {{test::kRoleVariable, "hold-briefly scripts-left"}}), 0U);
  }
  EXPECT_TRUE(test::Within(
      kLongEnough, [&] { return test::BytesOf(folder_.File("seen.txt")) == "went on\r\n"; }));
}

TEST_F(WindowsScriptsTest, OfAFolderThatIsNotThereAreRefused) {
  EXPECT_EQ(scripts_.Start(folder_.File("none\\on-event.cmd"), {}), 0U);
  EXPECT_EQ(scripts_.Start("on-event.cmd", {}), 0U);
  EXPECT_EQ(scripts_.Start("", {}), 0U);
}

TEST_F(WindowsScriptsTest, ThatAreOverOrUnknownMayBeAskedAndEnded) {
  EXPECT_FALSE(scripts_.Runs(0));
  scripts_.End(0);
  const ScriptRun run = scripts_.Start(folder_.Write("on-event.cmd", "@exit 3\r\n"), {});
  EXPECT_TRUE(Over(run));
  scripts_.End(run);
  EXPECT_FALSE(scripts_.Runs(run));
}

TEST_F(WindowsScriptsTest, KeepNoHandleOfARunThatIsOver) {
  const std::string script = folder_.Write("on-event.cmd", "@exit\r\n");
  const auto useAll = [&] {
    EXPECT_TRUE(Over(scripts_.Start(script, {})));
    scripts_.Start(folder_.File("none\\on-event.cmd"), {});
  };
  useAll();
  DWORD before = 0;
  GetProcessHandleCount(GetCurrentProcess(), &before);
  for (int round = 0; round < 5; ++round) useAll();
  DWORD after = 0;
  GetProcessHandleCount(GetCurrentProcess(), &after);
  EXPECT_EQ(after, before);
}

}  // namespace
}  // namespace tarvo
