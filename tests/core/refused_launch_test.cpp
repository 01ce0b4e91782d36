// A server whose file is there and whose launch the system refuses: locked by a scanner, without
// rights, in want of elevation or of memory. All supervision ended over it once.

#include "core/start_stop.h"
#include "form/status_colours.h"
#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

class RefusedLaunch : public LauncherStory {
 protected:
  RefusedLaunch() {
    StartLauncher();
    launcher->ForgetLog();
  }
  void Refuse(const char* executable, const FileFault& reason) {
    machine.processes.Program(executable).launchFault = reason;
  }
  void Allow(const char* executable) { machine.processes.Program(executable).launchFault.reset(); }
  std::string Caption(std::size_t index) {
    return launcher->TheForm().status.bStart[index].Caption();
  }
};

TEST_F(RefusedLaunch, IsARedLineWithTheSystemsWordsAndTheWatchesGoOn) {
  const struct {
    FileFault reason;
    const char* words;
  } cases[] = {
      {FileInUse(),
       "The process cannot access the file because it is being used by another process (system "
       "error 32)"},
      {NoRights(), "Access is denied (system error 5)"},
      {NeedsElevation(), "The requested operation requires elevation (system error 740)"},
      {NoMemory(),
       "The paging file is too small for this operation to complete (system error 1455)"}};
  for (const auto& c : cases) {
    StartLauncher();
    launcher->ForgetLog();
    Refuse(kChar, c.reason);
    launcher->Click("bStart", 1);
    EXPECT_EQ(launcher->Log(),
              std::string("10:00:00 2 [char-server.exe] can't be started: ") + c.words + "\n");
    EXPECT_EQ(machine.boxes.NewTexts(), "");
    EXPECT_FALSE(launcher->Ended());
    EXPECT_EQ(launcher->Of(ComponentKind::Char).ProcessId, 0u);
    EXPECT_EQ(launcher->Of(ComponentKind::Char).AlarmState, AlarmState::Trouble);
    EXPECT_EQ(launcher->RunningTimers(ComponentKind::Char), "CCtrl");
    EXPECT_EQ(Caption(1), "Stop");
    EXPECT_FALSE(launcher->TheForm().servers.Exes[ComponentKind::Char].Enabled());
    EXPECT_EQ(machine.recorder.CountOf("processes.priority("), 0u);
  }
}

TEST_F(RefusedLaunch, IsTriedAgainAtEachCrashCheckUntilItSucceeds) {
  Refuse(kLogin, NoRights());
  launcher->Click("bStart", 0);
  launcher->Pass(10s);
  Allow(kLogin);
  launcher->Pass(8s);
  EXPECT_EQ(launcher->Log(),
            "10:00:00 2 [login-server.exe] can't be started: Access is denied (system error 5)\n"
            "10:00:05 2 Login Server crashed, restarting...\n"
            "10:00:05 2 [login-server.exe] can't be started: Access is denied (system error 5)\n"
            "10:00:10 2 Login Server crashed, restarting...\n"
            "10:00:10 2 [login-server.exe] can't be started: Access is denied (system error 5)\n"
            "10:00:15 2 Login Server crashed, restarting...\n"
            "10:00:15 0 Login Server Started! [Low Priority]\n"
            "10:00:18 0 Listening Login Server\n");
  EXPECT_EQ(launcher->Of(ComponentKind::Login).ProcessId, Process(kLogin).id);
  EXPECT_EQ(launcher->Of(ComponentKind::Login).AlarmState, AlarmState::Healthy);
  EXPECT_EQ(Process(kLogin).priorityClass, 0x4000u);
}

TEST_F(RefusedLaunch, OfARestartLeavesTheOthersWatched) {
  launcher->Click("bStart", 3);
  launcher->Pass(11s);
  launcher->ForgetLog();
  Refuse(kMap, FileInUse());
  Crash(kMap);
  launcher->Pass(5s);
  Crash(kLogin);
  launcher->Pass(5s);
  EXPECT_EQ(launcher->CountInLog("Login Server Started! [Low Priority]"), 1u);
  EXPECT_FALSE(launcher->Ended());
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Map), "MCtrl");
}

// What runs by that name is nothing of the launcher's: it started none.
TEST_F(RefusedLaunch, AServerThatSomebodyElseStartsMeanwhileIsTakenUnderControl) {
  Refuse(kMap, NeedsElevation());
  launcher->Click("bStart", 2);
  const ProcessId foreign = machine.processes.StartForeign(kMap);
  launcher->ForgetLog();
  launcher->Pass(5s);
  EXPECT_EQ(launcher->Log(),
            "10:00:05 2 Map Server crashed, restarting...\n"
            "10:00:05 0 [map-server.exe] was found in memory!\n"
            "10:00:05 0 Map Server under control [High Priority]\n"
            "10:00:05 0 Listening Map Server\n");
  EXPECT_EQ(Process(kMap).id, foreign);
  EXPECT_EQ(launcher->Of(ComponentKind::Map).ProcessId, foreign);
}

TEST_F(RefusedLaunch, EndsWithTheComponentsButton) {
  Refuse(kMap, NoMemory());
  launcher->Click("bStart", 2);
  launcher->ForgetLog();
  launcher->Click("bStart", 2);
  EXPECT_EQ(launcher->Log(), "10:00:00 1 Map Server Stopped!\n");
  EXPECT_EQ(Caption(2), "Start");
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Map), "");
  EXPECT_EQ(launcher->Of(ComponentKind::Map).AlarmState, AlarmState::NotWatched);
  launcher->ForgetLog();
  launcher->Pass(1min);
  EXPECT_EQ(launcher->Log(), "");
}

TEST_F(RefusedLaunch, IsNothingThatStopAllOrACloseKnowsOf) {
  Refuse(kMap, NoMemory());
  launcher->Click("bStart", 2);
  launcher->ForgetLog();
  launcher->Click("bStart", 4);
  EXPECT_EQ(launcher->Log(), "");
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Map), "MCtrl");
  launcher->Close();
  EXPECT_EQ(machine.boxes.NewTexts(), "");
  EXPECT_TRUE(launcher->Ended());
}

TEST_F(RefusedLaunch, IsTriedAtOnceByStartAllAndKeepsOneRhythm) {
  Refuse(kMap, FileInUse());
  launcher->Click("bStart", 2);
  launcher->Pass(3s);
  launcher->ForgetLog();
  launcher->Click("bStart", 3);
  EXPECT_EQ(launcher->CountInLog("[map-server.exe] can't be started: " + FileInUse().description +
                                 " (system error 32)"),
            1u);
  EXPECT_EQ(launcher->RunningTimers(ComponentKind::Map), "MCtrl");
  launcher->ForgetLog();
  launcher->Pass(11s);
  EXPECT_EQ(launcher->CountInLog("Map Server crashed, restarting..."), 2u);
  launcher->ForgetLog();
  Allow(kMap);
  launcher->Click("bStart", 3);
  EXPECT_EQ(launcher->Log(), "10:00:14 0 Map Server Started [High Priority]\n");
}

TEST_F(RefusedLaunch, KeepsItsPriorityForTheLaunchThatSucceeds) {
  Refuse(kChar, NoRights());
  launcher->Click("bStart", 1);
  launcher->ForgetLog();
  launcher->Choose("Prior", 1, "V-High");
  EXPECT_EQ(launcher->Log(), "");
  Allow(kChar);
  launcher->Pass(5s);
  EXPECT_EQ(Process(kChar).priorityClass, 0x80u);
}

}  // namespace
}  // namespace tarvo
