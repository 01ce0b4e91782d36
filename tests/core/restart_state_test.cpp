// What a launcher that died hands to the one that comes after it.
#include "core/restart_state.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "core/handed_settings.h"
#include "platform/self_restart.h"
#include "tests/simulation/sim_registry.h"

namespace tarvo {
namespace {

RestartState Of(bool login, bool charServer, bool map) {
  RestartState state;
  state.underControl[ComponentKind::Login] = login;
  state.underControl[ComponentKind::Char] = charServer;
  state.underControl[ComponentKind::Map] = map;
  return state;
}

TEST(RestartState, IsWrittenAsArguments) {
  EXPECT_EQ(ArgumentsOf(Of(false, false, false)), "--resume none");
  EXPECT_EQ(ArgumentsOf(Of(true, true, true)), "--resume login,char,map");
  RestartState state = Of(true, false, true);
  state.minimized = true;
  state.settings = {{"LoginPri", "2"}, {"MapExe", "map server &=%\"\xE4.exe"}, {"CharExe", ""}};
  EXPECT_EQ(ArgumentsOf(state),
            "--resume login,map --minimized --settings "
            "LoginPri=2&MapExe=map%20server%20%26%3D%25%22%E4.exe&CharExe=");
}

TEST(RestartState, WritesLettersDigitsAndFourSignsAsTheyAre) {
  const std::string plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._,";
  for (int byte = 1; byte < 256; ++byte) {
    const char c = static_cast<char>(byte);
    char escaped[4];
    std::snprintf(escaped, sizeof escaped, "%%%02X", static_cast<unsigned>(byte));
    RestartState state;
    state.settings = {{"A", std::string(1, c)}};
    const std::string text = plain.find(c) == plain.npos ? std::string(escaped) : std::string(1, c);
    EXPECT_EQ(ArgumentsOf(state), "--resume none --settings A=" + text) << byte;
  }
}

TEST(RestartState, ComesBackAsItWas) {
  std::string allBytes;
  for (int byte = 1; byte < 256; ++byte) allBytes += static_cast<char>(byte);
  for (unsigned mask = 0; mask < 16; ++mask) {
    RestartState state = Of(mask & 1, mask & 2, mask & 4);
    state.minimized = (mask & 8) != 0;
    EXPECT_EQ(RestartStateOf(ArgumentsOf(state)), state) << mask;
    state.settings = {{"A", allBytes}, {"B", ""}, {"C", " --settings x --minimized"}};
    EXPECT_EQ(RestartStateOf(ArgumentsOf(state)), state) << mask;
  }
}

TEST(RestartState, OtherArgumentsAreNone) {
  const char* const strangers[] = {
      "",
      "login",
      "--resume",
      "--resume ",
      " --resume login",
      "--resumelogin",
      "--Resume login",
      "--resume Login",
      "--resume login,",
      "--resume ,login",
      "--resume login, map",
      "--resume login,none",
      "--resume none,login",
      "--resume login map",
      "--resume login --minimised",
      "--resume login --minimized x",
      "--resume --minimized",
      "--resume login  --minimized",
      "--resume login --settings A",
      "--resume login --settings A=1&B",
      "--resume login --settings A=1&&B=2",
      "--resume login --settings A=%",
      "--resume login --settings A=%4",
      "--resume login --settings A=%4g",
      "--resume login --settings A=%e4",
      "--resume login --settings A=b c",
      "--resume login --settings A=1=2",
      "--resume login --settings A=1 --settings B=2",
  };
  for (const char* text : strangers) EXPECT_FALSE(RestartStateOf(text).has_value()) << text;
}

TEST(RestartState, EveryTruncationIsNoneOrAState) {
  RestartState state = Of(true, true, true);
  state.minimized = true;
  state.settings = {{"LoginPri", "2 3"}};
  const std::string whole = ArgumentsOf(state);
  for (std::size_t length = 0; length < whole.size(); ++length) {
    const auto read = RestartStateOf(whole.substr(0, length));
    EXPECT_NE(read, state) << length;
  }
}

TEST(RestartState, SettingsTooLongToBeHandedOnAreLeftAway) {
  RestartState state = Of(false, true, false);
  const std::string before = "--resume char --settings A=";
  state.settings = {{"A", std::string(kLongestArguments - before.size(), 'x')}};
  EXPECT_EQ(ArgumentsOf(state).size(), kLongestArguments);
  state.settings[0].text += 'x';
  EXPECT_EQ(ArgumentsOf(state), "--resume char");
}

class HandedSettingsTest : public ::testing::Test {
 protected:
  static constexpr char kKey[] = "Software\\X";
  HandedSettingsTest() {
    stored.Put(Hive::LocalMachine, kKey, "A", {kRegistryText, "stored"});
    registry.Take({{"A", "handed"}});
  }
  std::string Read(const std::string& key = kKey, Hive hive = Hive::LocalMachine) {
    const auto data = registry.Query(hive, key, "A");
    return data ? data->bytes : "(none)";
  }
  CallRecorder recorder;
  SimRegistry stored{recorder};
  HandedSettings registry{stored, kKey};
};

TEST_F(HandedSettingsTest, GoBeforeTheStoredOnes) {
  EXPECT_EQ(Read(), "handed");
  EXPECT_EQ(Read("Software\\Y"), "(none)");
  EXPECT_EQ(Read(kKey, Hive::CurrentUser), "(none)");
  EXPECT_EQ(stored.Peek(Hive::LocalMachine, kKey, "A")->bytes, "stored");
}

TEST_F(HandedSettingsTest, UntilTheyAreWrittenOrErased) {
  EXPECT_TRUE(registry.WriteText(Hive::LocalMachine, kKey, "A", "written"));
  EXPECT_EQ(Read(), "written");
  registry.Take({{"A", "handed"}});
  registry.Erase(Hive::LocalMachine, kKey, "A");
  EXPECT_EQ(Read(), "(none)");
}

TEST_F(HandedSettingsTest, StayWhenTheSameNameIsWrittenElsewhere) {
  EXPECT_TRUE(registry.WriteText(Hive::LocalMachine, "Software\\Y", "A", "another"));
  registry.Erase(Hive::CurrentUser, kKey, "A");
  EXPECT_EQ(Read(), "handed");
}

TEST(CollectedSettings, KeepWhatIsWrittenInOrder) {
  CollectedSettings collected;
  EXPECT_TRUE(collected.WriteText(Hive::LocalMachine, "key", "B", "2"));
  EXPECT_TRUE(collected.WriteText(Hive::LocalMachine, "key", "A", ""));
  EXPECT_EQ(collected.Settings(), (std::vector<SettingText>{{"B", "2"}, {"A", ""}}));
  EXPECT_FALSE(collected.Query(Hive::LocalMachine, "key", "A").has_value());
}

}  // namespace
}  // namespace tarvo
