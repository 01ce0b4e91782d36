#include "core/settings_store.h"

#include <gtest/gtest.h>

#include "core/per_user_registry.h"
#include "core/server_root.h"
#include "tests/simulation/sim_registry.h"

namespace tarvo {
namespace {

constexpr char kKey[] = "Software\\TarvoLab\\Servers\\ABC";
constexpr std::uint32_t kNumberType = 4;
constexpr std::uint32_t kExpandableType = 2;
constexpr std::uint32_t kManyTextsType = 7;

class RegistryText : public ::testing::Test {
 protected:
  std::string Read(const std::string& defaultText = {}) {
    return ReadRegistryString(registry, Hive::LocalMachine, kKey, "Value", defaultText);
  }
  void Put(std::uint32_t type, std::string bytes) {
    registry.Put(Hive::LocalMachine, kKey, "Value", {type, std::move(bytes)});
  }

  CallRecorder recorder;
  SimRegistry registry{recorder};
};

TEST_F(RegistryText, AMissingValueIsItsDefault) {
  EXPECT_EQ(Read("10000"), "10000");
  EXPECT_EQ(Read(), "");
}

TEST_F(RegistryText, AStringIsCutAtItsFirstNul) {
  const struct {
    std::string bytes;
    std::string text;
  } cases[] = {
      {"plain", "plain"},
      {std::string("ended\0", 6), "ended"},
      {std::string("two\0texts\0", 10), "two"},
      {std::string("\0", 1), ""},
      {"", ""},
      {" blanks stay ", " blanks stay "},
      {"\xE9\xFF", "\xE9\xFF"},
      {std::string(60000, 'x'), std::string(60000, 'x')},
  };
  for (const auto& c : cases) {
    Put(kRegistryText, c.bytes);
    EXPECT_EQ(Read("default"), c.text) << c.bytes.substr(0, 40);
  }
}

TEST_F(RegistryText, AValueOfAnotherTypeIsItsDefault) {
  for (std::uint32_t type : {0u, kExpandableType, 3u, kNumberType, kManyTextsType, 11u}) {
    Put(type, "1");
    EXPECT_EQ(Read("default"), "default") << type;
  }
}

TEST_F(RegistryText, AWrittenTextIsStoredWithoutATerminatingNul) {
  EXPECT_TRUE(WriteRegistryString(registry, Hive::LocalMachine, kKey, "Value", "20"));
  const auto data = registry.Peek(Hive::LocalMachine, kKey, "Value");
  ASSERT_TRUE(data);
  EXPECT_EQ(data->type, kRegistryText);
  EXPECT_EQ(data->bytes, "20");
}

TEST_F(RegistryText, ARefusedWriteIsFalseAndChangesNothing) {
  Put(kRegistryText, "old");
  registry.Deny(Hive::LocalMachine);
  EXPECT_FALSE(WriteRegistryString(registry, Hive::LocalMachine, kKey, "Value", "new"));
  EXPECT_EQ(Read(), "old");
}

TEST_F(RegistryText, DeletingTakesTheValueAwayAndAMissingOneIsNoFault) {
  Put(kRegistryText, "x");
  DeleteRegistryValue(registry, Hive::LocalMachine, kKey, "Value");
  EXPECT_FALSE(registry.Peek(Hive::LocalMachine, kKey, "Value"));
  DeleteRegistryValue(registry, Hive::LocalMachine, kKey, "Value");
  EXPECT_EQ(Read("default"), "default");
}

class PerUserCopy : public RegistryText {
 protected:
  PerUserRegistry perUser{registry};
};

TEST_F(PerUserCopy, WithTheRightToWriteEverythingLiesUnderTheMachine) {
  EXPECT_TRUE(perUser.WriteText(Hive::LocalMachine, kKey, "Value", "1"));
  EXPECT_EQ(registry.Peek(Hive::LocalMachine, kKey, "Value")->bytes, "1");
  EXPECT_FALSE(registry.Peek(Hive::CurrentUser, kKey, "Value"));
}

TEST_F(PerUserCopy, WithoutTheRightTheOperatorsOwnCopyIsWrittenAndRead) {
  Put(kRegistryText, "of the machine");
  registry.Deny(Hive::LocalMachine);
  EXPECT_TRUE(perUser.WriteText(Hive::LocalMachine, kKey, "Value", "of the operator"));
  EXPECT_EQ(perUser.Query(Hive::LocalMachine, kKey, "Value")->bytes, "of the operator");
  EXPECT_EQ(Read(), "of the machine");
}

TEST_F(PerUserCopy, AWriteThatSucceedsUnderTheMachineEndsTheCopy) {
  registry.Deny(Hive::LocalMachine);
  perUser.WriteText(Hive::LocalMachine, kKey, "Value", "older");
  registry.Deny(Hive::LocalMachine, false);
  perUser.WriteText(Hive::LocalMachine, kKey, "Value", "newer");
  EXPECT_FALSE(registry.Peek(Hive::CurrentUser, kKey, "Value"));
  EXPECT_EQ(perUser.Query(Hive::LocalMachine, kKey, "Value")->bytes, "newer");
}

TEST_F(PerUserCopy, OtherKeysHaveNoCopy) {
  registry.Deny(Hive::LocalMachine);
  for (const char* key : {"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run", "Software\\TarvoLab",
                          "Software\\TarvoLab\\Server"}) {
    EXPECT_FALSE(perUser.WriteText(Hive::LocalMachine, key, "Value", "x")) << key;
    EXPECT_FALSE(registry.Peek(Hive::CurrentUser, key, "Value")) << key;
  }
}

TEST_F(PerUserCopy, ACopyThatIsNoTextDoesNotHideTheText) {
  Put(kRegistryText, "of the machine");
  registry.Put(Hive::CurrentUser, kKey, "Value", {4, "copy"});
  EXPECT_EQ(perUser.Query(Hive::LocalMachine, kKey, "Value")->bytes, "of the machine");
}

TEST_F(PerUserCopy, ErasingTakesValueAndCopyAway) {
  Put(kRegistryText, "of the machine");
  registry.Put(Hive::CurrentUser, kKey, "Value", {kRegistryText, "copy"});
  perUser.Erase(Hive::LocalMachine, kKey, "Value");
  EXPECT_FALSE(registry.Peek(Hive::CurrentUser, kKey, "Value"));
  EXPECT_FALSE(registry.Peek(Hive::LocalMachine, kKey, "Value"));
}

}  // namespace
}  // namespace tarvo
