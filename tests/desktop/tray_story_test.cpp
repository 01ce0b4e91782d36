#include <algorithm>

#include "desktop/status_picture.h"
#include "desktop/tray_menu.h"
#include "supervision/status_lights.h"
#include "tests/simulation/launcher_story.h"

namespace tarvo {
namespace {

using namespace std::chrono_literals;

constexpr AlarmState kUnwatched = AlarmState::NotWatched;
constexpr AlarmState kTrouble = AlarmState::Trouble;
constexpr AlarmState kHealthy = AlarmState::Healthy;

class Tray : public LauncherStory {
 protected:
  std::string Tip() const { return machine.tray.Shown() ? machine.tray.Shown()->tip : "(none)"; }

  /// True when the icon shows the picture of these states.
  bool Shows(AlarmState login, AlarmState charServer, AlarmState map) {
    SimIcons other;
    const Picture wanted = DrawStatusPicture({{login, charServer, map}}, 16);
    return machine.tray.Shown() && machine.icons.last.pixels == wanted.pixels &&
           machine.tray.Shown()->icon == machine.icons.made;
  }
  void Minimize() { launcher->Window().SetState(WindowState::Minimized); }

  std::ptrdiff_t PlaceOf(const std::string& beginning) const {
    const auto& calls = machine.recorder.Calls();
    return std::find_if(calls.begin(), calls.end(),
                        [&](const std::string& call) { return call.starts_with(beginning); }) -
           calls.begin();
  }
};

TEST_F(Tray, TheIconBearsTheServersNameAndThePictureOfNothingWatched) {
  StartLauncher();
  EXPECT_EQ(Tip(), "[Northwind] - Tarvo Launcher");
  EXPECT_TRUE(Shows(kUnwatched, kUnwatched, kUnwatched));
}

TEST_F(Tray, TheIconIsThereBeforeTheWindowCanMinimize) {
  machine.SetSetting("StartMinimized", "1");
  StartLauncher();
  EXPECT_LT(PlaceOf("tray.add("), PlaceOf("registry.query(StartMinimized)"));
  EXPECT_FALSE(launcher->Window().Visible());
  EXPECT_EQ(launcher->Window().State(), WindowState::Minimized);
  machine.tray.Mouse(515);
  EXPECT_TRUE(launcher->Window().Visible());
  EXPECT_EQ(launcher->Window().State(), WindowState::Normal);
}

TEST_F(Tray, MinimizingHidesAndADoubleClickBringsBackInFront) {
  StartLauncher();
  for (std::uint32_t doubleClick : {515U, 518U}) {
    Minimize();
    EXPECT_FALSE(launcher->Window().Visible());
    const int requests = launcher->Window().FrontRequests();
    machine.tray.Mouse(doubleClick);
    EXPECT_TRUE(launcher->Window().Visible());
    EXPECT_EQ(launcher->Window().State(), WindowState::Normal);
    EXPECT_EQ(launcher->Window().FrontRequests(), requests + 1);
  }
}

TEST_F(Tray, ASingleLeftClickDoesNothing) {
  StartLauncher();
  Minimize();
  for (std::uint32_t message : {512U, 513U, 514U}) machine.tray.Mouse(message);
  EXPECT_FALSE(launcher->Window().Visible());
  EXPECT_TRUE(machine.tray.Menus().empty());
}

TEST_F(Tray, TheMenuComesAtTheRightButtonsPressAndNotAtItsRelease) {
  StartLauncher();
  machine.tray.Mouse(516);
  ASSERT_EQ(machine.tray.Menus().size(), 1U);
  machine.tray.Mouse(517);
  ASSERT_EQ(machine.tray.Menus().size(), 1U);
  const std::vector<MenuEntry>& menu = machine.tray.Menus()[0];
  ASSERT_EQ(menu.size(), 1U);
  EXPECT_EQ(menu[0].caption, "&Show");
  EXPECT_TRUE(menu[0].isDefault);
  EXPECT_TRUE(menu[0].enabled);
}

TEST_F(Tray, ShowInTheMenuBringsTheWindowBack) {
  StartLauncher();
  Minimize();
  machine.tray.ChooseNext(0);
  machine.tray.Mouse(516);
  EXPECT_TRUE(launcher->Window().Visible());
  EXPECT_EQ(launcher->Window().State(), WindowState::Normal);
  EXPECT_EQ(launcher->Window().FrontRequests(), 1);
}

TEST(TrayMenuKeys, CloseDoesNothingAndAnyOtherKeyIsTold) {
  SimMachine machine;
  EventDispatch dispatch;
  MainWindow window;
  frmSysTray tray(machine.tray, machine.codePage, dispatch);
  const TrayMenu menu(tray, window, machine.boxes);
  tray.Load("tip", 8);
  tray.AddMenuItem("Close", "close");
  tray.AddMenuItem("Other", "Open");
  tray.AddMenuItem("Empty", "");
  machine.tray.ChooseNext(1);
  machine.tray.Mouse(516);
  EXPECT_TRUE(machine.boxes.Shown().empty());
  EXPECT_FALSE(window.Ended());
  for (std::size_t entry : {2U, 3U}) {
    machine.tray.ChooseNext(entry);
    machine.tray.Mouse(516);
  }
  EXPECT_EQ(machine.boxes.NewTexts(), "Clicked item with key Open\nClicked item with key \n");
  EXPECT_EQ(machine.boxes.Shown()[0].icon, BoxIcon::Information);
  EXPECT_EQ(machine.boxes.Shown()[0].buttons, BoxButtons::Ok);
  EXPECT_EQ(window.FrontRequests(), 0);
}

TEST_F(Tray, ThePictureFollowsTheStatesAtTheTick) {
  StartLauncher();
  launcher->Click("bStart", 3);
  launcher->Pass(11s);
  EXPECT_TRUE(Shows(kHealthy, kHealthy, kHealthy));
  Crash(kMap);
  launcher->Pass(6s);
  EXPECT_TRUE(Shows(kHealthy, kHealthy, kTrouble));
}

// Trouble at login and map alone has no code, so the icon keeps the picture of the code before.
TEST_F(Tray, StatesWithoutACodeKeepThePictureOfTheCodeBefore) {
  StartLauncher();
  launcher->Click("bStart", 0);
  launcher->Click("bStart", 2);
  launcher->Pass(11s);
  ASSERT_TRUE(Shows(kHealthy, kUnwatched, kHealthy));
  Crash(kLogin);
  Crash(kMap);
  launcher->Pass(5s);
  const auto& Sem = launcher->TheForm().frame.Sem;
  ASSERT_EQ(Sem[ComponentKind::Login].State(), LightStateOf(kTrouble));
  ASSERT_EQ(Sem[ComponentKind::Map].State(), LightStateOf(kTrouble));
  EXPECT_TRUE(Shows(kHealthy, kUnwatched, kHealthy));
}

TEST_F(Tray, TheTipNamesTheServerOnceTheLauncherIsReady) {
  std::size_t ready = 0;
  std::size_t named = 0;
  launcher = std::make_unique<Launcher>(machine);
  machine.recorder.beforeEach = [&] {
    if (machine.recorder.Calls().back() != "tray.modify([Northwind] - Tarvo Launcher)") return;
    ++named;
    ready += launcher->CountInLog("Launcher Ready!");
  };
  launcher->Start();
  EXPECT_EQ(named, 1U);
  EXPECT_EQ(ready, 1U);
}

TEST_F(Tray, ThePictureChangesBeforeTheLights) {
  StartLauncher();
  launcher->Click("bStart", 3);
  launcher->Pass(11s);
  const Light& map = launcher->TheForm().frame.Sem[ComponentKind::Map];
  int pictureAlone = 0;
  machine.recorder.beforeEach = [&] {
    const bool trouble = launcher->Of(ComponentKind::Map).AlarmState == AlarmState::Trouble;
    const bool modifies = machine.recorder.Calls().back().starts_with("tray.modify(");
    const bool green = map.State() == LightStateOf(AlarmState::Healthy);
    if (trouble && modifies && green) ++pictureAlone;
  };
  Crash(kMap);
  launcher->Pass(6s);
  EXPECT_EQ(pictureAlone, 1);
  EXPECT_EQ(map.State(), LightStateOf(AlarmState::Trouble));
}

TEST_F(Tray, EveryTickHandsThePictureOverAnew) {
  StartLauncher();
  machine.recorder.Forget();
  launcher->Pass(60s);
  EXPECT_EQ(machine.recorder.CountOf("tray.modify("), 30U);
  EXPECT_EQ(machine.icons.made, 1);
}

TEST_F(Tray, TheTickTakesTheSizeThatTheScreenHasNow) {
  StartLauncher();
  machine.icons.size = 48;
  launcher->Pass(2s);
  EXPECT_EQ(machine.icons.last.size, 48);
  EXPECT_TRUE(machine.icons.alive.contains(machine.tray.Shown()->icon));
}

TEST_F(Tray, ThePicturesAreThoseOfTheCodes) {
  for (int code = 0; code <= 25; ++code) {
    const auto states = StatesOfCode(code);
    EXPECT_EQ(StatusCodeFor(states[0], states[1], states[2]), code);
  }
  for (int code : {-1, 26, 1000}) {
    const auto states = StatesOfCode(code);
    EXPECT_EQ(StatusCodeFor(states[0], states[1], states[2]), 8) << code;
  }
}

TEST_F(Tray, ALongServerNameIsCutInTheTipAndWholeInTheTitle) {
  const std::string name = "R&D \xE9\xFC " + std::string(300, 'x');
  machine.PutConf("C:\\srv", "server_name: " + name + "\r\n", UsualMapConf());
  StartLauncher();
  const std::string title = "[" + name + "] - Tarvo Launcher";
  EXPECT_EQ(launcher->Window().Title(), title);
  EXPECT_EQ(Tip(), title.substr(0, 63));
}

TEST_F(Tray, WithoutANotificationAreaTheLauncherWorks) {
  machine.tray.TakeAway();
  StartLauncher();
  launcher->Click("bStart", 3);
  launcher->Pass(11s);
  EXPECT_EQ(launcher->CountInLog("Listening Map Server"), 1U);
  machine.tray.TakeAway(false);
  machine.tray.RestartShell();
  EXPECT_EQ(Tip(), "[Northwind] - Tarvo Launcher");
}

// At a log-on the launcher may be there before the shell, which refuses its icon; a hidden launcher
// then had no way back to its window.
TEST_F(Tray, AnIconThatIsRefusedAtLogOnIsThereOnceTheShellIs) {
  machine.SetSetting("StartMinimized", "1");
  machine.tray.TakeAway();
  StartLauncher();
  launcher->Click("bStart", 3);
  launcher->Pass(19s);
  EXPECT_EQ(Tip(), "(none)");
  machine.tray.TakeAway(false);
  launcher->Pass(2s);
  EXPECT_EQ(Tip(), "[Northwind] - Tarvo Launcher");
  EXPECT_TRUE(Shows(kHealthy, kHealthy, kHealthy));
  machine.recorder.Forget();
  launcher->Pass(10s);
  EXPECT_EQ(machine.recorder.CountOf("tray.add("), 0U);
  machine.tray.Mouse(515);
  EXPECT_TRUE(launcher->Window().Visible());
}

TEST_F(Tray, ARefusedIconIsOfferedOnceAtEachTick) {
  machine.tray.TakeAway();
  StartLauncher();
  machine.recorder.Forget();
  launcher->Pass(60s);
  EXPECT_EQ(machine.recorder.CountOf("tray.add("), 30U);
}

TEST_F(Tray, AnIconThatARestartedShellRefusesIsOfferedAgain) {
  StartLauncher();
  machine.tray.TakeAway();
  machine.tray.RestartShell();
  launcher->Pass(4s);
  machine.tray.TakeAway(false);
  launcher->Pass(2s);
  EXPECT_EQ(Tip(), "[Northwind] - Tarvo Launcher");
}

TEST_F(Tray, AShellThatForgotTheIconWithoutAWordGetsItAtTheNextTick) {
  StartLauncher();
  machine.tray.RestartShellInSilence();
  launcher->Pass(2s);
  EXPECT_EQ(Tip(), "[Northwind] - Tarvo Launcher");
}

TEST_F(Tray, AnIconThatTheShellHasKeptIsNotOfferedTickByTick) {
  StartLauncher();
  machine.tray.AnnounceAgain();
  machine.recorder.Forget();
  launcher->Pass(10s);
  EXPECT_EQ(machine.recorder.CountOf("tray.add("), 0U);
}

TEST_F(Tray, ARestartedShellGetsTheIconBack) {
  StartLauncher();
  machine.tray.RestartShell();
  EXPECT_EQ(Tip(), "[Northwind] - Tarvo Launcher");
  EXPECT_TRUE(Shows(kUnwatched, kUnwatched, kUnwatched));
}

TEST_F(Tray, ACloseTakesTheIconAwayBeforeTheSettingsAreSaved) {
  StartLauncher();
  machine.recorder.Forget();
  launcher->Close();
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(Tip(), "(none)");
  EXPECT_LT(PlaceOf("tray.delete()"), PlaceOf("tray.closeWindow()"));
  EXPECT_LT(PlaceOf("tray.closeWindow()"), PlaceOf("registry.write("));
}

TEST_F(Tray, ARefusedCloseLeavesTheIcon) {
  StartWithAllServers();
  launcher->Close();
  EXPECT_FALSE(launcher->Ended());
  EXPECT_EQ(Tip(), "[Northwind] - Tarvo Launcher");
}

TEST_F(Tray, UnloadingTheLauncherAloneTakesTheIconAway) {
  StartWithAllServers();
  launcher->Click("Command1");
  EXPECT_EQ(Tip(), "[Northwind] - Tarvo Launcher") << "he answered No";
  machine.boxes.AnswerNext(Answer::Yes);
  launcher->Click("Command1");
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(Tip(), "(none)");
  EXPECT_FALSE(machine.tray.Window());
}

TEST_F(Tray, AFaultTakesTheIconAwayBeforeItIsTold) {
  machine.SetSetting("LoginPri", "7");
  std::string tipUnderTheBox = "no box came";
  machine.boxes.whileNextIsOpen = [&] { tipUnderTheBox = Tip(); };
  StartLauncher();
  EXPECT_EQ(launcher->ExitCode(), kExitFault);
  EXPECT_EQ(tipUnderTheBox, "(none)");
}

TEST_F(Tray, ALauncherThatMayNotStartHereShowsNoIcon) {
  machine.files.Remove("C:\\srv\\conf\\login_athena.conf");
  StartLauncher();
  EXPECT_EQ(launcher->ExitCode(), kExitRefused);
  EXPECT_EQ(machine.recorder.CountOf("tray."), 0U);
}

TEST_F(Tray, ASecondLauncherInTheSameRootShowsNoIcon) {
  StartLauncher();
  machine.recorder.Forget();
  Launcher second(machine);
  second.Start();
  EXPECT_TRUE(second.Ended());
  EXPECT_EQ(machine.recorder.CountOf("tray."), 0U);
  EXPECT_EQ(Tip(), "[Northwind] - Tarvo Launcher");
}

class SessionEnd : public Tray {};

TEST_F(SessionEnd, SavesTheSettingsAndLeavesTheServersWithoutAWord) {
  StartWithAllServers();
  launcher->Check("chkAK", 2);
  launcher->Type("TTO", 2, "90");
  launcher->EndSession();
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(launcher->ExitCode(), kExitNormal);
  EXPECT_EQ(machine.Setting("MapTimeout"), "90");
  EXPECT_TRUE(machine.boxes.Shown().empty());
  EXPECT_EQ(Tip(), "(none)");
  for (const char* server : kServers) {
    EXPECT_EQ(machine.processes.Named(server).size(), 1U) << server;
  }
}

TEST_F(SessionEnd, WithoutServersItIsACloseToo) {
  StartLauncher();
  launcher->EndSession();
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(machine.Setting("StartMinimized"), "0");
}

TEST_F(SessionEnd, UnderAMessageBoxItIsNotHeldUp) {
  StartWithAllServers();
  machine.boxes.whileNextIsOpen = [this] { launcher->EndSession(); };
  launcher->Close();  // Refused by a box, under which the operator logs off.
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(machine.Setting("MapTimeout"), "60");
  EXPECT_EQ(machine.processes.Named(kMap).size(), 1U);
}

// The system asks all programs first and tells them to end later. In between the crash watch took
// the servers that had ended at the question for crashed ones.
TEST_F(SessionEnd, NothingTicksBetweenTheQuestionAndTheEnd) {
  StartWithAllServers();
  const std::size_t launches = machine.processes.Launches();
  launcher->AskForEndOfSession();
  for (const char* server : kServers) Crash(server);
  machine.recorder.Forget();
  launcher->Pass(1min);
  EXPECT_EQ(machine.recorder.Calls(), std::vector<std::string>{});
  EXPECT_EQ(launcher->Log(), "");
  launcher->EndSession();
  EXPECT_TRUE(launcher->Ended());
  EXPECT_EQ(machine.processes.Launches(), launches);
  EXPECT_EQ(machine.Setting("MapTimeout"), "60");
  EXPECT_TRUE(machine.boxes.Shown().empty());
}

TEST_F(SessionEnd, ThatIsCalledOffLetsTheWatchesGoOn) {
  StartWithAllServers();
  launcher->AskForEndOfSession();
  launcher->Pass(20s);
  Crash(kMap);
  launcher->Pass(40s);
  ASSERT_EQ(launcher->Log(), "");
  launcher->CallOffEndOfSession();
  machine.recorder.Forget();
  launcher->Pass(0s);
  EXPECT_EQ(machine.recorder.CountOf("tray.modify("), 1U) << "a missed tick comes once";
  EXPECT_EQ(launcher->CountInLog("Map Server crashed, restarting..."), 1U);
  EXPECT_EQ(machine.processes.Named(kMap).size(), 1U);
  machine.recorder.Forget();
  launcher->Pass(60s);
  EXPECT_EQ(machine.recorder.CountOf("tray.modify("), 30U);
  EXPECT_FALSE(launcher->Ended());
  EXPECT_EQ(machine.recorder.CountOf("registry.write"), 0U);
}

TEST_F(SessionEnd, MayBeAskedForTwiceAndCalledOffUnasked) {
  StartWithAllServers();
  launcher->CallOffEndOfSession();
  launcher->AskForEndOfSession();
  launcher->AskForEndOfSession();
  launcher->CallOffEndOfSession();
  Crash(kMap);
  launcher->Pass(5s);
  EXPECT_EQ(launcher->CountInLog("Map Server crashed, restarting..."), 1U);
}

TEST_F(SessionEnd, SavesOnce) {
  StartWithAllServers();
  launcher->AskForEndOfSession();
  launcher->EndSession();
  machine.recorder.Forget();
  launcher->EndSession();
  launcher->CallOffEndOfSession();
  launcher->Close();
  launcher->Pass(1min);
  EXPECT_EQ(machine.recorder.Calls(), std::vector<std::string>{});
}

TEST_F(SessionEnd, NothingTicksUnderABoxThatIsUpAtTheQuestion) {
  StartWithAllServers();
  machine.boxes.whileNextIsOpen = [this] {
    launcher->AskForEndOfSession();
    Crash(kMap);
    launcher->Pass(1min);
  };
  launcher->Close();  // Refused by a box.
  EXPECT_EQ(launcher->Log(), "");
  launcher->CallOffEndOfSession();
  launcher->Pass(5s);
  EXPECT_EQ(launcher->CountInLog("Map Server crashed, restarting..."), 1U);
}

TEST_F(SessionEnd, DuringARefusalToStartNothingIsSaved) {
  machine.files.Remove("C:\\srv\\conf\\login_athena.conf");
  machine.boxes.whileNextIsOpen = [this] { launcher->EndSession(); };
  launcher = std::make_unique<Launcher>(machine);
  launcher->Start();
  EXPECT_EQ(launcher->ExitCode(), kExitRefused);
  EXPECT_EQ(machine.Setting("StartMinimized"), "(none)");
}

}  // namespace
}  // namespace tarvo
