#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/component.h"

namespace tarvo {

/// A value of the settings, by its name.
struct SettingText {
  std::string name;
  std::string text;

  bool operator==(const SettingText&) const = default;
};

/// The first argument of a launcher that takes over: what comes with it is no command.
inline constexpr std::string_view kResumeArgument = "--resume";

/// What a launcher that is restarted after a fault of its own takes over from the one that died.
struct RestartState {
  PerComponent<bool> underControl{};
  bool minimized = false;
  /// What the operator had set and no close has saved yet.
  std::vector<SettingText> settings;

  bool operator==(const RestartState&) const = default;
};

/// The state as arguments of the program: "--resume login,map --minimized --settings
/// LoginPri=2&...", "--resume none" when nothing was under control. ASCII alone: other bytes of a
/// setting, blanks, "&", "=" and "%" become "%" and two hexadecimal digits. Settings that would
/// make it longer than the program can be started with (`kLongestArguments`) are omitted, all of
/// them.
std::string ArgumentsOf(const RestartState& state);

/// Reads such arguments; nothing for any other text: the launcher was not restarted then.
std::optional<RestartState> RestartStateOf(std::string_view arguments);

}  // namespace tarvo
