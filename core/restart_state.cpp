#include "core/restart_state.h"

#include <algorithm>

#include "platform/self_restart.h"
#include "support/text.h"

namespace tarvo {
namespace {

constexpr std::string_view kMinimized = " --minimized";
constexpr std::string_view kSettings = " --settings ";
constexpr std::string_view kNone = "none";
constexpr std::string_view kDigits = "0123456789ABCDEF";

bool StandsForItself(char c) {
  return IsLetter(c) || IsDigit(c) || c == '-' || c == '.' || c == '_' || c == ',';
}

void AddEncoded(std::string& to, std::string_view text) {
  for (const char c : text) {
    if (StandsForItself(c)) {
      to += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    to += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
  }
}

std::optional<std::string> Decoded(std::string_view text) {
  std::string decoded;
  for (; !text.empty(); text.remove_prefix(1)) {
    if (text.front() != '%') {
      if (!StandsForItself(text.front())) return std::nullopt;
      decoded += text.front();
      continue;
    }
    if (text.size() < 3) return std::nullopt;
    const std::size_t high = kDigits.find(text[1]);
    const std::size_t low = kDigits.find(text[2]);
    if (high == kDigits.npos || low == kDigits.npos) return std::nullopt;
    decoded += static_cast<char>(high << 4 | low);
    text.remove_prefix(2);
  }
  return decoded;
}

/// Removes the part before the mark, and the mark, from the text; all of it when there is no mark.
std::string_view TakeUntil(std::string_view& text, std::string_view mark) {
  const std::size_t end = text.find(mark);
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(end == text.npos ? text.size() : end + mark.size());
  return taken;
}

bool ReadComponents(std::string_view text, PerComponent<bool>& underControl) {
  if (text == kNone) return true;
  for (;;) {
    const std::size_t comma = text.find(',');
    const auto kind = std::find_if(
        kComponents.begin(), kComponents.end(),
        [name = text.substr(0, comma)](ComponentKind each) { return name == WordOf(each); });
    if (kind == kComponents.end()) return false;
    underControl[*kind] = true;
    if (comma == text.npos) return true;
    text.remove_prefix(comma + 1);
  }
}

bool ReadSettings(std::string_view text, std::vector<SettingText>& settings) {
  while (!text.empty()) {
    std::string_view setting = TakeUntil(text, "&");
    if (setting.find('=') == setting.npos) return false;
    const auto name = Decoded(TakeUntil(setting, "="));
    const auto value = Decoded(setting);
    if (!name || !value) return false;
    settings.push_back({*name, *value});
  }
  return true;
}

}  // namespace

std::string ArgumentsOf(const RestartState& state) {
  std::string names;
  for (ComponentKind kind : kComponents) {
    if (!state.underControl[kind]) continue;
    if (!names.empty()) names += ',';
    names += WordOf(kind);
  }
  std::string text(kResumeArgument);
  text += ' ';
  text += names.empty() ? kNone : std::string_view(names);
  if (state.minimized) text += kMinimized;
  std::string settings;
  for (const SettingText& setting : state.settings) {
    settings += settings.empty() ? kSettings : std::string_view("&");
    AddEncoded(settings, setting.name);
    settings += '=';
    AddEncoded(settings, setting.text);
  }
  if (text.size() + settings.size() <= kLongestArguments) text += settings;
  return text;
}

std::optional<RestartState> RestartStateOf(std::string_view arguments) {
  if (!arguments.starts_with(kResumeArgument)) return std::nullopt;
  arguments.remove_prefix(kResumeArgument.size());
  if (!arguments.starts_with(' ')) return std::nullopt;
  arguments.remove_prefix(1);
  RestartState state;
  const bool hasSettings = arguments.find(kSettings) != arguments.npos;
  std::string_view before = TakeUntil(arguments, kSettings);
  if (before.ends_with(kMinimized)) {
    state.minimized = true;
    before.remove_suffix(kMinimized.size());
  }
  if (!ReadComponents(before, state.underControl)) return std::nullopt;
  if (hasSettings && !ReadSettings(arguments, state.settings)) return std::nullopt;
  return state;
}

}  // namespace tarvo
