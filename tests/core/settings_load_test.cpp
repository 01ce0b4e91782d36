#include <gtest/gtest.h>

#include "tests/core/settings_desk.h"

namespace tarvo {
namespace {

/// Every value with what its control shows when the value is missing.
const struct {
  const char* name;
  const char* shown;
} kDefaults[] = {
    {"LoginExe", kLogin},
    {"CharExe", kChar},
    {"MapExe", kMap},
    {"LoginChkInterval", "10000"},
    {"CharChkInterval", "10000"},
    {"MapChkInterval", "10000"},
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
    {"RunAtStartup", "0"},
    {"LoginAutoKillEnabled", "0"},
    {"CharAutoKillEnabled", "0"},
    {"MapAutoKillEnabled", "0"},
    {"MapFullAutokill", "0"},
    {"AutoRandomize", "0"},
    {"MaxRndDay", "1"},
    {"MaxRndHour", "1"},
    {"LastRandomize", "2026-11-21 10:00:00"},
    {"DayRndCnt", "0"},
    {"HourRndCnt", "0"},
    {"UpdateMode", "0"},
    {"StartMinimized", "0"},
};

TEST(LoadedSettings, WithoutAKeyEverythingHasItsDefault) {
  SettingsDesk desk;
  ASSERT_EQ(desk.Load(), "loaded");
  for (const auto& value : kDefaults) {
    EXPECT_EQ(desk.Shown(value.name), value.shown) << value.name;
  }
  EXPECT_EQ(desk.form.servers.Prior[ComponentKind::Login].Text(), "Low");
  EXPECT_EQ(desk.form.servers.Prior[ComponentKind::Char].Text(), "Norm");
  EXPECT_EQ(desk.form.servers.Prior[ComponentKind::Map].Text(), "High");
}

TEST(LoadedSettings, AValueOfAnotherTypeHasItsDefault) {
  for (std::uint32_t type : {2u, 3u, 4u, 7u}) {
    for (const auto& value : kDefaults) {
      EXPECT_EQ(ShownAfterLoading(value.name, "2", type), value.shown) << value.name << type;
    }
  }
}

TEST(LoadedSettings, LoadingWritesNothing) {
  SettingsDesk desk;
  desk.machine.SetSetting("RunAtStartup", "1");
  desk.machine.SetSetting("UpdateMode", "2");
  ASSERT_EQ(desk.Load(), "loaded");
  EXPECT_EQ(desk.machine.recorder.CountOf("registry.write"), 0u);
  EXPECT_EQ(desk.machine.recorder.CountOf("registry.erase"), 0u);
}

TEST(LoadedSettings, ValuesAreReadInTheirOrder) {
  SettingsDesk desk;
  ASSERT_EQ(desk.Load(), "loaded");
  std::string order;
  for (const std::string& call : desk.machine.recorder.Calls()) {
    if (call.starts_with("registry.query(")) order += call.substr(15, call.size() - 16) + " ";
  }
  EXPECT_EQ(order,
            "LoginExe CharExe MapExe LoginChkInterval CharChkInterval MapChkInterval LoginTimeout "
            "CharTimeout MapTimeout LoginPri CharPri MapPri LoginAutoStart CharAutoStart "
            "MapAutoStart WriteLog WriteMode RunAtStartup LoginAutoKillEnabled "
            "CharAutoKillEnabled MapAutoKillEnabled MapFullAutokill AutoRandomize AutoRandomize "
            "AutoRandomize MaxRndDay MaxRndHour LastRandomize DayRndCnt HourRndCnt LoginFrom "
            "CharFrom MapFrom UpdateMode LASTUPDATE RunOnEvent StartMinimized ");
}

struct Loaded {
  const char* name;
  std::string text;
  std::string shown;  ///< Or the fault: its number and the value's name.
};

void ExpectLoaded(const std::vector<Loaded>& cases) {
  for (const Loaded& c : cases) {
    EXPECT_EQ(ShownAfterLoading(c.name, c.text), c.shown)
        << c.name << " = \"" << c.text.substr(0, 60) << '"';
  }
}

TEST(LoadedSettings, AnIntervalIsANumericValueBetweenOneSecondAndSixty) {
  for (const char* name : {"LoginChkInterval", "CharChkInterval", "MapChkInterval"}) {
    ExpectLoaded({
        {name, "15000", "15000"},
        {name, "1000", "1000"},
        {name, "999", "1000"},
        {name, "500", "1000"},
        {name, "60000", "60000"},
        {name, "60001", "60000"},
        {name, "999999", "60000"},
        {name, "99999999999999999999", "60000"},
        {name, "1e300", "60000"},
        {name, "&H100000000", "60000"},
        {name, "&HFFFFFFFF", "1000"},
        {name, "-5000", "1000"},
        {name, "-1e300", "1000"},
        {name, "abc", "1000"},
        {name, "", "1000"},
        {name, "12000 ms", "12000"},
        {name, "1500.5", "1500"},
        {name, "1501.5", "1502"},
        {name, "&H2710", "10000"},
        {name, std::string(61440, '9'), "60000"},
        {name, std::string(61440, 'x'), "1000"},
    });
  }
}

TEST(LoadedSettings, ATimeoutIsTakenAsItStands) {
  for (const char* name : {"LoginTimeout", "CharTimeout", "MapTimeout"}) {
    ExpectLoaded({{name, "15", "15"},
                  {name, "", ""},
                  {name, " 7 ", " 7 "},
                  {name, "abc", "abc"},
                  {name, std::string(61440, '1'), std::string(61440, '1')}});
  }
}

TEST(LoadedSettings, APriorityIsConvertedToAnIndexOfItsList) {
  for (const char* name : {"LoginPri", "CharPri", "MapPri"}) {
    ExpectLoaded({
        {name, "0", "0"},
        {name, "4", "4"},
        {name, " 2 ", "2"},
        {name, "1.5", "2"},
        {name, "&H3", "3"},
        {name, "-1", "-1"},
        {name, "5", std::string("380 ") + name},
        {name, "7", std::string("380 ") + name},
        {name, "-2", std::string("380 ") + name},
        {name, "", std::string("13 ") + name},
        {name, "Low", std::string("13 ") + name},
        {name, "1x", std::string("13 ") + name},
        {name, "3000000000", std::string("6 ") + name},
        {name, std::string(61440, 'x'), std::string("13 ") + name},
        {name, std::string(61440, '9'), std::string("6 ") + name},
    });
  }
}

TEST(LoadedSettings, AFlagIsOffForTheTextZeroAlone) {
  for (const char* name : {"LoginAutoStart", "CharAutoStart", "MapAutoStart", "WriteLog",
                           "RunAtStartup", "LoginAutoKillEnabled", "CharAutoKillEnabled",
                           "MapAutoKillEnabled", "MapFullAutokill", "StartMinimized"}) {
    ExpectLoaded({{name, "0", "0"},
                  {name, "1", "1"},
                  {name, "2", "1"},
                  {name, "", "1"},
                  {name, "00", "1"},
                  {name, " 0", "1"},
                  {name, "off", "1"},
                  {name, std::string(61440, '0'), "1"}});
  }
}

TEST(LoadedSettings, TheWriteModeIsANumericValueWithinItsList) {
  ExpectLoaded({{"WriteMode", "0", "0"},
                {"WriteMode", "3", "3"},
                {"WriteMode", "2 of 3", "2"},
                {"WriteMode", "abc", "0"},
                {"WriteMode", "", "0"},
                {"WriteMode", "-1", "-1"},
                {"WriteMode", "2.5", "2"},
                {"WriteMode", "4", "380 WriteMode"},
                {"WriteMode", "-2", "380 WriteMode"},
                {"WriteMode", "3000000000", "6 WriteMode"},
                {"WriteMode", std::string(61440, 'x'), "0"},
                {"WriteMode", std::string(61440, '9'), "6 WriteMode"}});
}

TEST(LoadedSettings, AChoiceOfTheRandomizerIsATextOfItsOwn) {
  ExpectLoaded({{"AutoRandomize", "0", "0"},
                {"AutoRandomize", "1", "1"},
                {"AutoRandomize", "2", "2"},
                {"AutoRandomize", "3", "none"},
                {"AutoRandomize", "", "none"},
                {"AutoRandomize", "1 ", "none"},
                {"AutoRandomize", std::string(61440, '1'), "none"}});
}

TEST(LoadedSettings, TheRandomizersLimitsAreCrossedAndShownAsShortestNumbers) {
  for (const char* name : {"MaxRndDay", "MaxRndHour"}) {
    ExpectLoaded({{name, "5", "5"},
                  {name, "007", "7"},
                  {name, "2.50", "2.5"},
                  {name, "3 times", "3"},
                  {name, "abc", "0"},
                  {name, "", "0"},
                  {name, std::string(61440, 'x'), "0"}});
  }
  SettingsDesk desk;
  desk.machine.SetSetting("MaxRndDay", "24");
  desk.machine.SetSetting("MaxRndHour", "3");
  ASSERT_EQ(desk.Load(), "loaded");
  EXPECT_EQ(desk.form.randomizer.txtMxD[0].Text(), "24");
  EXPECT_EQ(desk.form.randomizer.txtMxD[1].Text(), "3");
}

TEST(LoadedSettings, CountersAndTheLastMomentAreConverted) {
  for (const char* name : {"DayRndCnt", "HourRndCnt"}) {
    ExpectLoaded({{name, "12", "12"},
                  {name, "-3", "-3"},
                  {name, "x", std::string("13 ") + name},
                  {name, "", std::string("13 ") + name},
                  {name, "2147483648", std::string("6 ") + name},
                  {name, std::string(61440, '9'), std::string("6 ") + name}});
  }
  ExpectLoaded({{"LastRandomize", "2026-01-02 03:04:05", "2026-01-02 03:04:05"},
                {"LastRandomize", "1/2/2026 3:04:05 PM", "2026-01-02 15:04:05"},
                {"LastRandomize", "0", "1899-12-30 00:00:00"},
                {"LastRandomize", " 46024.5 ", "2026-01-02 12:00:00"},
                {"LastRandomize", "20260102", "13 LastRandomize"},
                {"LastRandomize", "", "13 LastRandomize"},
                {"LastRandomize", "yesterday", "13 LastRandomize"},
                {"LastRandomize", "2026-13-01", "13 LastRandomize"},
                {"LastRandomize", std::string(61440, '1'), "13 LastRandomize"}});
}

TEST(LoadedSettings, TheUpgradeTriggerIsConvertedAndAStrangeOneSelectsNone) {
  ExpectLoaded({{"UpdateMode", "1", "1"},
                {"UpdateMode", "2", "2"},
                {"UpdateMode", "3", "none"},
                {"UpdateMode", "-1", "none"},
                {"UpdateMode", "x", "13 UpdateMode"},
                {"UpdateMode", "99999999999", "6 UpdateMode"},
                {"UpdateMode", std::string(61440, 'x'), "13 UpdateMode"}});
}

TEST(LoadedSettings, AnExecutableIsTheFirstThatContainsTheStoredText) {
  for (const char* name : {"LoginExe", "CharExe", "MapExe"}) {
    ExpectLoaded({{name, "map-server", kMap},
                  {name, "map-server.exe", kMap},
                  {name, "server", kLogin},
                  {name, "r", "tarvo-launcher.exe"},
                  {name, "", "tarvo-launcher.exe"},
                  {name, "Login-Server", ""},
                  {name, "login-server.exe ", ""},
                  {name, "C:\\srv\\login-server.exe", ""},
                  {name, std::string(61440, 'x'), ""}});
  }
}

TEST(LoadedSettings, TheStoredExecutableIsKeptApartFromTheChooser) {
  SettingsDesk desk;
  desk.machine.SetSetting("MapExe", "nothing such");
  ASSERT_EQ(desk.Load(), "loaded");
  EXPECT_EQ(desk.components[ComponentKind::Map].storedExecutable, "nothing such");
  EXPECT_EQ(desk.components[ComponentKind::Login].storedExecutable, "login-server");
  EXPECT_EQ(desk.Shown("MapExe"), "");
}

TEST(LoadedSettings, AnyAutoStartTurnsToTheFirstPage) {
  for (const char* name : {"LoginAutoStart", "CharAutoStart", "MapAutoStart", "WriteLog"}) {
    SettingsDesk desk;
    desk.form.frame.SSTab1.SetPage(1);
    desk.machine.SetSetting(name, "1");
    ASSERT_EQ(desk.Load(), "loaded");
    EXPECT_EQ(desk.form.frame.SSTab1.Page(), std::string(name) == "WriteLog" ? 1 : 0) << name;
  }
}

TEST(LoadedSettings, AnAutokillTimeCanBeEditedWhenItsBoxIsChecked) {
  for (ComponentKind checked : kComponents) {
    SettingsDesk desk;
    desk.machine.SetSetting(std::string(NameOf(checked)) + "AutoKillEnabled", "1");
    ASSERT_EQ(desk.Load(), "loaded");
    for (ComponentKind kind : kComponents) {
      EXPECT_EQ(desk.form.servers.TTO[kind].Enabled(), kind == checked);
    }
  }
}

TEST(LoadedSettings, StartMinimizedMinimizesTheWindowLastOfAll) {
  SettingsDesk desk;
  desk.machine.SetSetting("StartMinimized", "1");
  std::size_t queriesBefore = 0;
  desk.form.frame.window.onResize = [&] {
    queriesBefore = desk.machine.recorder.CountOf("registry.query");
  };
  ASSERT_EQ(desk.Load(), "loaded");
  EXPECT_EQ(desk.form.frame.window.State(), WindowState::Minimized);
  EXPECT_EQ(queriesBefore, desk.machine.recorder.CountOf("registry.query"));
}

TEST(LoadedSettings, AllWatchStatesBeginAsNotWatched) {
  SettingsDesk desk;
  for (Component& component : desk.components) component.AlarmState = AlarmState::Healthy;
  ASSERT_EQ(desk.Load(), "loaded");
  for (const Component& component : desk.components) {
    EXPECT_EQ(component.AlarmState, AlarmState::NotWatched);
  }
}

TEST(ChkAkClick, EnablesExactlyItsOwnTimeBox) {
  SettingsDesk desk;
  for (std::size_t index = 0; index < 4; ++index) {
    desk.form.servers.chkAK[index].SetChecked(true);
    desk.settings.chkAK_Click(index);
    for (std::size_t box = 0; box < kComponentCount; ++box) {
      EXPECT_EQ(desk.form.servers.TTO.at(box).Enabled(), box == index) << index << box;
    }
    desk.form.servers.chkAK[index].SetChecked(false);
    desk.settings.chkAK_Click(index);
  }
  for (const TextBox& box : desk.form.servers.TTO) EXPECT_FALSE(box.Enabled());
}

}  // namespace
}  // namespace tarvo
