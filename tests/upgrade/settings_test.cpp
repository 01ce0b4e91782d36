#include "tests/upgrade/upgrade_story.h"

namespace tarvo {
namespace {

class UpgradeSettingsStory : public UpgradeStory {
 protected:
  /// The option that is selected; -1 for none.
  int Selected() {
    for (std::size_t i = 0; i < OptionGroup::Size(); ++i) {
      if (Page().optMode[i].Selected()) return static_cast<int>(i);
    }
    return -1;
  }
};

TEST_F(UpgradeSettingsStory, AFirstRunShowsTheDefaults) {
  SimMachine fresh;
  Launcher first(fresh);
  first.Start();
  UpgradePage& page = first.TheForm().upgrade;
  for (ComponentKind kind : kComponents) EXPECT_EQ(page.nPath[kind].Text(), "");
  EXPECT_EQ(page.oPath[0].Caption(), "C:\\srv\\login-server.exe");
  EXPECT_EQ(page.oPath[1].Caption(), "C:\\srv\\char-server.exe");
  EXPECT_EQ(page.oPath[2].Caption(), "C:\\srv\\map-server.exe");
  EXPECT_EQ(page.oPath[3].Caption(), "n/a");
  EXPECT_TRUE(page.optMode[0].Selected());
  EXPECT_TRUE(page.chk_Opts[0].Checked());
  EXPECT_FALSE(page.chk_Opts[1].Checked());
  EXPECT_FALSE(page.chk_Opts[2].Checked());
  EXPECT_EQ(page.UpdateNow.Caption(), "Upgrade Now!");
}

TEST_F(UpgradeSettingsStory, StoredValuesAreShownAndLoadingWritesNothing) {
  SetTrigger(2);
  machine.SetSetting("LASTUPDATE", "2026-10-01 12:00:00");
  StartReady();
  EXPECT_EQ(Page().nPath[0].Text(), kNewLogin);
  EXPECT_EQ(Page().nPath[1].Text(), kNewChar);
  EXPECT_EQ(Page().nPath[2].Text(), kNewMap);
  EXPECT_EQ(Page().oPath[3].Caption(), "2026-10-01 12:00:00");
  EXPECT_EQ(Selected(), 2);
  EXPECT_EQ(machine.recorder.CountOf("registry.write"), 0u);
}

TEST_F(UpgradeSettingsStory, TheUpgradesValuesAreReadAfterTheRandomizersAndBeforeStartMinimized) {
  StartReady();
  std::string order;
  for (const std::string& call : machine.recorder.Calls()) {
    for (const char* name : {"HourRndCnt", "LoginFrom", "CharFrom", "MapFrom", "UpdateMode",
                             "LASTUPDATE", "StartMinimized"}) {
      if (call == std::string("registry.query(") + name + ")" && !order.ends_with(name)) {
        order += std::string(" ") + name;
      }
    }
  }
  EXPECT_EQ(order, " HourRndCnt LoginFrom CharFrom MapFrom UpdateMode LASTUPDATE StartMinimized");
}

TEST_F(UpgradeSettingsStory, TheTriggerIsANumberAndAStrangeOneSelectsNone) {
  const struct {
    const char* text;
    int selected;
  } table[] = {{"0", 0},  {"1", 1},   {"2", 2},    {" 1 ", 1}, {"1.4", 1},
               {"3", -1}, {"-1", -1}, {"255", -1}, {"&H2", 2}, {"2147483647", -1}};
  for (const auto& entry : table) {
    machine.SetSetting("UpdateMode", entry.text);
    StartLauncher();
    EXPECT_EQ(Selected(), entry.selected) << entry.text;
  }
}

TEST_F(UpgradeSettingsStory, ATriggerThatIsNoNumberEndsTheStart) {
  for (const char* text : {"", "x", "1x", "99999999999"}) {
    machine.SetSetting("UpdateMode", text);
    StartLauncher();
    EXPECT_TRUE(launcher->Ended()) << text;
    EXPECT_EQ(launcher->ExitCode(), kExitFault) << text;
    EXPECT_NE(machine.boxes.Shown().back().text.find("UpdateMode"), std::string::npos) << text;
  }
}

TEST_F(UpgradeSettingsStory, AChosenPathIsShownAndStoredAtOnce) {
  const char* const names[] = {"LoginFrom", "CharFrom", "MapFrom"};
  StartReady();
  for (ComponentKind kind : kComponents) {
    const std::size_t i = IndexOf(kind);
    machine.fileDialog.answer = "D:\\build\\" + std::to_string(i) + ".exe";
    Do([&] { Page().cmd_nBrowse[kind].Click(); });
    EXPECT_EQ(Page().nPath[kind].Text(), machine.fileDialog.answer);
    EXPECT_EQ(machine.Setting(names[i]), machine.fileDialog.answer);
    EXPECT_EQ(machine.fileDialog.asked.back().initialName, New(kind));
    EXPECT_EQ(machine.fileDialog.asked.back().filterName, "Executables (*.exe)");
    EXPECT_EQ(machine.fileDialog.asked.back().pattern, "*.exe");
  }
  EXPECT_EQ(machine.recorder.CountOf("registry.write(LoginFrom)"), 1u);
}

TEST_F(UpgradeSettingsStory, CancellingTheDialogChangesNothing) {
  StartReady();
  TypePath(ComponentKind::Char, "typed");
  Do([&] { Page().cmd_nBrowse[1].Click(); });
  EXPECT_EQ(machine.fileDialog.asked.back().initialName, "typed");
  EXPECT_EQ(Page().nPath[1].Text(), "typed");
  EXPECT_EQ(machine.recorder.CountOf("registry.write"), 0u);
}

TEST_F(UpgradeSettingsStory, ADroppedFileIsChosenAndATypedOneIsNot) {
  StartReady();
  Do([&] { Page().nPath[2].Drop("E:\\dropped.exe"); });
  EXPECT_EQ(Page().nPath[2].Text(), "E:\\dropped.exe");
  EXPECT_EQ(machine.Setting("MapFrom"), "E:\\dropped.exe");
  TypePath(ComponentKind::Map, "F:\\typed.exe");
  Do([&] { Page().nPath[2].Drop(""); });
  launcher->Close();
  EXPECT_EQ(machine.Setting("MapFrom"), "E:\\dropped.exe");
}

TEST_F(UpgradeSettingsStory, AnExecutableIsDroppedInAnyLetterCase) {
  StartReady();
  for (const char* path : {"E:\\a.exe", "E:\\B.EXE", "\\\\host\\share\\c.eXe", "E:\\d.lnk.exe"}) {
    Do([&] { Page().nPath[0].Drop(path); });
    EXPECT_EQ(Page().nPath[0].Text(), path);
    EXPECT_EQ(machine.Setting("LoginFrom"), path);
  }
  EXPECT_TRUE(machine.boxes.Shown().empty());
}

TEST_F(UpgradeSettingsStory, WhatIsNoExecutableIsRefusedWithTheReason) {
  const struct {
    const char* path;
    const char* reason;
  } table[] = {{"E:\\map-server.exe.lnk",
                "This is a shortcut. Please, drop the executable that it leads to."},
               {"E:\\MAP.LNK", "This is a shortcut. Please, drop the executable that it leads to."},
               {"E:\\map-server", "Please, drop an executable (*.exe)."},
               {"E:\\builds.zip", "Please, drop an executable (*.exe)."},
               {"E:\\map.exe.bak", "Please, drop an executable (*.exe)."},
               {"E:\\mapexe", "Please, drop an executable (*.exe)."}};
  StartReady();
  for (const auto& entry : table) {
    Do([&] { Page().nPath[2].Drop(entry.path); });
    EXPECT_EQ(machine.boxes.NewTexts(), std::string(entry.reason) + "\r\n" + entry.path + "\n");
    ASSERT_FALSE(machine.boxes.Shown().empty()) << entry.path;
    EXPECT_EQ(machine.boxes.Shown().back().icon, BoxIcon::Exclamation);
    EXPECT_EQ(Page().nPath[2].Text(), kNewMap) << entry.path;
    EXPECT_EQ(machine.Setting("MapFrom"), kNewMap) << entry.path;
  }
}

TEST_F(UpgradeSettingsStory, ADisabledBoxTakesNoDrop) {
  StartReady();
  Page().nPath[0].SetEnabled(false);
  Do([&] { Page().nPath[0].Drop("E:\\dropped.exe"); });
  EXPECT_EQ(Page().nPath[0].Text(), kNewLogin);
}

TEST_F(UpgradeSettingsStory, TheTriggerIsStoredAtTheClickAndAtTheClose) {
  StartReady();
  for (std::size_t i : {1u, 2u, 0u}) {
    launcher->Click("optMode", i);
    EXPECT_EQ(machine.Setting("UpdateMode"), std::to_string(i));
    EXPECT_EQ(Selected(), static_cast<int>(i));
  }
  launcher->Click("optMode", 1);
  machine.SetSetting("UpdateMode", "gone astray");
  launcher->Close();
  EXPECT_EQ(machine.Setting("UpdateMode"), "1");
}

TEST_F(UpgradeSettingsStory, TheTargetFollowsTheChooser) {
  machine.files.Put("C:\\srv\\other.exe", "MZ");
  StartReady();
  launcher->Choose("Exes", 2, "other.exe");
  EXPECT_EQ(Page().oPath[2].Caption(), "C:\\srv\\other.exe");
  EXPECT_EQ(Page().oPath[1].Caption(), "C:\\srv\\char-server.exe");
}

TEST_F(UpgradeSettingsStory, AnEmptyChooserShowsTheFolder) {
  machine.SetSetting("MapExe", "no such thing");
  StartReady();
  EXPECT_EQ(Page().oPath[2].Caption(), "C:\\srv\\");
}

}  // namespace
}  // namespace tarvo
