#include "checkup/settings_checks.h"

#include "tests/checkup/check_up_desk.h"
#include "tests/simulation/launcher.h"

namespace tarvo {
namespace {

class SettingsChecks : public CheckUpDesk {
 protected:
  void PutOfUser(const std::string& name, const std::string& text) {
    machine.registry.Put(Hive::CurrentUser, machine.SettingsKey(), name, {kRegistryText, text});
  }
};

TEST_F(SettingsChecks, AutokillOffEverywhereIsANote) {
  for (const char* name : {"Login", "Char", "Map"}) {
    machine.SetSetting(std::string(name) + "AutoKillEnabled", "0");
  }
  EXPECT_EQ(Told(),
            "note watch [Freeze autokill] It is off for all components, so none is probed, and one "
            "that freezes stays frozen.\n");
  machine.SetSetting("CharAutoKillEnabled", "1");
  EXPECT_EQ(Told(), "");
}

TEST_F(SettingsChecks, AnAutokillTimeThatIsNoNumberUsedOrNot) {
  machine.SetSetting("MapAutoKillEnabled", "0");
  for (const char* text : {"", "99999999999"}) {
    machine.SetSetting("MapTimeout", text);
    EXPECT_EQ(Told(), "error watch [Map] The autokill time \"" + std::string(text) +
                          "\" is no number of seconds, and ends the launcher when a server is "
                          "started or stopped.\n");
  }
}

TEST_F(SettingsChecks, AnAutokillTimeIsJudgedAsTheStartCleansIt) {
  machine.SetSetting("MapTimeout", "60s");
  EXPECT_EQ(Told(), "");
  machine.SetSetting("MapTimeout", "soon");
  EXPECT_EQ(Told(),
            "error watch [Map] The autokill time is shorter than 5 seconds, so no server can be "
            "started.\n");
}

TEST_F(SettingsChecks, AnAutokillTimeThatIsTooShortWhereItIsUsed) {
  machine.SetSetting("MapTimeout", "4");
  EXPECT_EQ(Told(),
            "error watch [Map] The autokill time is shorter than 5 seconds, so no server can be "
            "started.\n");
  machine.SetSetting("MapAutoKillEnabled", "0");
  EXPECT_EQ(Told(), "");
  machine.SetSetting("MapAutoKillEnabled", "1");
  machine.SetSetting("MapTimeout", "5");
  EXPECT_EQ(Told(), "");
}

TEST_F(SettingsChecks, AValueOfThisUserAlone) {
  PutOfUser("LDATE", "x");
  EXPECT_EQ(
      Told(),
      "note settings [LDATE] For want of rights these values are kept for this user alone.\n");
}

TEST_F(SettingsChecks, AValueOfThisUserThatHidesTheMachines) {
  machine.SetSetting("LDATE", "x");
  PutOfUser("LDATE", "x");
  EXPECT_EQ(Told(), "");
  PutOfUser("LDATE", "y");
  EXPECT_EQ(Told(),
            "warning settings [LDATE] This user's own copy hides the value that all other users "
            "have.\n");
}

TEST_F(SettingsChecks, AValueThatIsNoTextIsNone) {
  machine.SetSetting("LDATE", "x");
  machine.registry.Put(Hive::CurrentUser, machine.SettingsKey(), "LDATE", {4, "\1"});
  machine.registry.Put(Hive::CurrentUser, machine.SettingsKey(), "MapPri", {4, "\x9"});
  EXPECT_EQ(Told(), "");
}

TEST_F(SettingsChecks, ThisUsersOwnCopyDecidesWhetherTheNextStartEnds) {
  machine.SetSetting("MapPri", "fast");
  PutOfUser("MapPri", "2");
  EXPECT_EQ(Told().find("ends the launcher's next start"), std::string::npos) << Told();
  machine.SetSetting("MapPri", "2");
  PutOfUser("MapPri", "fast");
  EXPECT_TRUE(Told().starts_with("error settings [MapPri]")) << Told();
}

TEST_F(SettingsChecks, ManyOfThemAreOneFinding) {
  for (const SettingName& setting : SettingNames()) {
    if (setting.rule == ValueRule::AnyText) PutOfUser(setting.name, "1");
  }
  EXPECT_NE(Told().find(" and "), std::string::npos);
  EXPECT_NE(Told().find(" more] For want of rights"), std::string::npos);
}

/// A value with which the launcher does, or does not, start; the check-up says the same.
struct StartValue {
  const char* name;
  const char* text;
};

class StartValues : public SettingsChecks, public ::testing::WithParamInterface<StartValue> {
 protected:
  /// What the start's fault names as its source; "" when there is none.
  std::string FatalAtStart() {
    Launcher launcher(machine);
    launcher.Start();
    if (!launcher.Ended()) return "";
    const std::string text = machine.boxes.Shown().back().text;
    return text.substr(text.rfind('\n') + 1);
  }
};

TEST_P(StartValues, EndsTheStartAsTold) {
  const std::string name = GetParam().name;
  const bool winsock = name == "Winsock";
  machine.registry.Put(Hive::LocalMachine, winsock ? kSettingsKeyPrefix : machine.SettingsKey(),
                       name, {kRegistryText, GetParam().text});
  const bool told = Told().find("error settings [" + name + "]") != std::string::npos;
  EXPECT_EQ(told ? name : "", FatalAtStart());
}

INSTANTIATE_TEST_SUITE_P(
    Values, StartValues,
    ::testing::Values(StartValue{"LoginPri", "x"}, StartValue{"LoginPri", "5"},
                      StartValue{"LoginPri", "4"}, StartValue{"CharPri", "-2"},
                      StartValue{"CharPri", "-1"}, StartValue{"MapPri", ""},
                      StartValue{"MapPri", "99999999999"}, StartValue{"MapPri", "1.5"},
                      StartValue{"WriteMode", "x"}, StartValue{"WriteMode", "4"},
                      StartValue{"WriteMode", "3"}, StartValue{"WriteMode", "-2"},
                      StartValue{"WriteMode", "1E99"}, StartValue{"LastRandomize", "never"},
                      StartValue{"LastRandomize", ""}, StartValue{"LastRandomize", "2026-01-01"},
                      StartValue{"LastRandomize", "45000.5"}, StartValue{"LastRandomize", "1E12"},
                      StartValue{"DayRndCnt", "x"}, StartValue{"DayRndCnt", "7"},
                      StartValue{"HourRndCnt", ""}, StartValue{"UpdateMode", "manual"},
                      StartValue{"UpdateMode", "9"}, StartValue{"Winsock", "two"},
                      StartValue{"Winsock", "&H202"}, StartValue{"LoginChkInterval", "x"},
                      StartValue{"LoginTimeout", "x"}, StartValue{"MaxRndDay", "x"},
                      StartValue{"LastRandProcess", "x"}, StartValue{"WindowPlace", "x"},
                      StartValue{"AutoRandomize", "x"}));

TEST_F(SettingsChecks, EachValueThatTheLauncherStoresIsKnown) {
  {
    Launcher launcher(machine);
    launcher.Start();
    launcher.Close();
    ASSERT_TRUE(launcher.Ended());
  }
  const std::vector<SettingName> known = SettingNames();
  for (const auto& [name, text] :
       machine.registry.ValuesOf(Hive::LocalMachine, machine.SettingsKey())) {
    const bool isKnown = std::any_of(
        known.begin(), known.end(),
        [&, &stored = name](const SettingName& setting) { return setting.name == stored; });
    EXPECT_TRUE(isKnown) << name;
  }
}

}  // namespace
}  // namespace tarvo
