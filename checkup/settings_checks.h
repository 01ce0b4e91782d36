#pragma once

#include <optional>
#include <string>
#include <vector>

#include "checkup/choices.h"
#include "checkup/finding.h"

namespace tarvo {

/// No freeze autokill at all, and autokill times that the start buttons refuse or fail on.
Findings CheckWatch(const Choices& choices);

/// What has to be true of a stored value for the launcher to start.
enum class ValueRule { AnyText, Number, PriorityIndex, LevelIndex, Moment };

/// A value that the launcher stores or reads.
struct SettingName {
  std::string name;
  ValueRule rule = ValueRule::AnyText;
};

/// All values of a root's key.
std::vector<SettingName> SettingNames();

/// A value as the machine has it for everybody, and as this user has it for himself alone.
struct StoredValue {
  SettingName setting;
  std::optional<std::string> ofMachine;
  std::optional<std::string> ofUser;
};

Findings CheckSettings(const std::vector<StoredValue>& values);

}  // namespace tarvo
