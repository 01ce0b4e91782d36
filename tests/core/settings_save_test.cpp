#include <gtest/gtest.h>

#include "tests/core/settings_desk.h"

namespace tarvo {
namespace {

using Values = std::map<std::string, std::string>;

const Values kSavedDefaults = {
    {"LoginExe", kLogin},
    {"CharExe", kChar},
    {"MapExe", kMap},
    {"LoginTimeout", "20"},
    {"CharTimeout", "300"},
    {"MapTimeout", "60"},
    {"LoginPri", "1"},
    {"CharPri", "2"},
    {"MapPri", "3"},
    {"LoginAutoStart", "0"},
    {"CharAutoStart", "0"},
    {"MapAutoStart", "0"},
    {"WriteLog", "0"},
    {"WriteMode", "0"},
    {"StartMinimized", "0"},
    {"RunAtStartup", "0"},
    {"LoginAutoKillEnabled", "0"},
    {"CharAutoKillEnabled", "0"},
    {"MapAutoKillEnabled", "0"},
    {"MapFullAutokill", "0"},
    {"UpdateMode", "0"},
    {"AutoRandomize", "0"},
    {"MaxRndDay", "1"},
    {"MaxRndHour", "1"},
};

Values SavedOf(SettingsDesk& desk) {
  return desk.machine.registry.ValuesOf(Hive::LocalMachine, desk.root.SettingsKey());
}

TEST(SavedSettings, AreEveryValueThatTheOperatorEditsAndNoOther) {
  SettingsDesk desk;
  ASSERT_EQ(desk.Load(), "loaded");
  desk.Save();
  EXPECT_EQ(SavedOf(desk), kSavedDefaults);
}

TEST(SavedSettings, AreWrittenInTheirOrder) {
  SettingsDesk desk;
  ASSERT_EQ(desk.Load(), "loaded");
  desk.machine.recorder.Forget();
  desk.Save();
  std::string order;
  for (const std::string& call : desk.machine.recorder.Calls()) {
    if (call.starts_with("registry.write(")) order += call.substr(15, call.size() - 16) + " ";
  }
  EXPECT_EQ(order,
            "LoginExe CharExe MapExe LoginTimeout CharTimeout MapTimeout LoginPri CharPri MapPri "
            "LoginAutoStart CharAutoStart MapAutoStart WriteLog WriteMode StartMinimized "
            "RunAtStartup LoginAutoKillEnabled CharAutoKillEnabled MapAutoKillEnabled "
            "MapFullAutokill UpdateMode AutoRandomize MaxRndDay MaxRndHour ");
}

TEST(SavedSettings, ComeBackByteForByte) {
  Values changed = kSavedDefaults;
  changed["LoginExe"] = kMap;
  changed["MapExe"] = kLogin;
  changed["LoginTimeout"] = "007";
  changed["CharTimeout"] = "7";
  changed["MapTimeout"] = "";
  changed["LoginPri"] = "-1";
  changed["MapPri"] = "4";
  for (const char* flag : {"CharAutoStart", "WriteLog", "StartMinimized", "RunAtStartup",
                           "LoginAutoKillEnabled", "MapFullAutokill"}) {
    changed[flag] = "1";
  }
  changed["WriteMode"] = "3";
  changed["UpdateMode"] = "2";
  changed["AutoRandomize"] = "1";
  changed["MaxRndDay"] = "2.5";
  changed["MaxRndHour"] = "24";
  SettingsDesk desk;
  for (const auto& [name, text] : changed) desk.machine.SetSetting(name, text);
  ASSERT_EQ(desk.Load(), "loaded");
  desk.Save();
  EXPECT_EQ(SavedOf(desk), changed);
}

TEST(SavedSettings, ChoicesAreTheSelectedOptionAndTwoForNone) {
  for (std::size_t choice = 0; choice < 3; ++choice) {
    SettingsDesk desk;
    desk.form.randomizer.opt_Rnd[choice].Select();
    desk.form.upgrade.optMode[choice].Select();
    desk.Save();
    EXPECT_EQ(SavedOf(desk)["AutoRandomize"], std::to_string(choice));
    EXPECT_EQ(SavedOf(desk)["UpdateMode"], std::to_string(choice));
  }
  SettingsDesk none;
  none.Save();
  EXPECT_EQ(SavedOf(none)["AutoRandomize"], "2");
  EXPECT_EQ(SavedOf(none)["UpdateMode"], "2");
}

TEST(SavedSettings, TheLimitsAreWrittenUnchangedAndCrossed) {
  SettingsDesk desk;
  desk.form.randomizer.txtMxD[0].SetText("x 1");
  desk.form.randomizer.txtMxD[1].SetText("");
  desk.Save();
  EXPECT_EQ(SavedOf(desk)["MaxRndDay"], "x 1");
  EXPECT_EQ(SavedOf(desk)["MaxRndHour"], "");
}

TEST(SavedSettings, NoSelectionIsMinusOneAndAnEmptyExecutable) {
  SettingsDesk desk;
  desk.Save();
  EXPECT_EQ(SavedOf(desk)["LoginExe"], "");
  EXPECT_EQ(SavedOf(desk)["LoginPri"], "-1");
  EXPECT_EQ(SavedOf(desk)["WriteMode"], "-1");
}

TEST(SavedSettings, TheCheckIntervalIsNeverWritten) {
  SettingsDesk desk;
  desk.machine.SetSetting("MapChkInterval", "500");
  ASSERT_EQ(desk.Load(), "loaded");
  desk.Save();
  EXPECT_EQ(desk.machine.Setting("MapChkInterval"), "500");
  EXPECT_EQ(desk.machine.Setting("LoginChkInterval"), "(none)");
}

TEST(SavedSettings, ARefusedWriteStopsNothing) {
  SettingsDesk desk;
  ASSERT_EQ(desk.Load(), "loaded");
  desk.machine.registry.Deny(Hive::LocalMachine);
  desk.Save();
  EXPECT_EQ(desk.machine.recorder.CountOf("registry.write"), kSavedDefaults.size());
  EXPECT_TRUE(SavedOf(desk).empty());
}

}  // namespace
}  // namespace tarvo
