#pragma once

#include <optional>
#include <string_view>

#include "support/component_kind.h"

namespace tarvo {

/// A key of the servers' configuration files, and what is on its line.
struct ConfigurationKey {
  enum class Says { Port, Host, ServerName };

  const char* file;  ///< In the folder `conf`.
  const char* key;   ///< With its colon.
  Says says;
  ComponentKind component = ComponentKind::Char;  ///< Whose port or host it is.
};

inline constexpr const char* kConfigurationFiles[] = {"char_athena.conf", "map_athena.conf"};

/// Every key that counts; each file has its own. The login server's endpoint is the one at which
/// the char server reaches it.
inline constexpr ConfigurationKey kConfigurationKeys[] = {
    {kConfigurationFiles[0], "login_port:", ConfigurationKey::Says::Port, ComponentKind::Login},
    {kConfigurationFiles[0], "char_port:", ConfigurationKey::Says::Port, ComponentKind::Char},
    {kConfigurationFiles[0], "login_ip:", ConfigurationKey::Says::Host, ComponentKind::Login},
    {kConfigurationFiles[0], "char_ip:", ConfigurationKey::Says::Host, ComponentKind::Char},
    {kConfigurationFiles[0], "server_name:", ConfigurationKey::Says::ServerName},
    {kConfigurationFiles[1], "map_port:", ConfigurationKey::Says::Port, ComponentKind::Map},
    {kConfigurationFiles[1], "map_ip:", ConfigurationKey::Says::Host, ComponentKind::Map}};

/// What follows the key at the very start of the line, letter case included; nothing when the line
/// begins otherwise.
inline std::optional<std::string_view> RestAfterKey(std::string_view line, std::string_view key) {
  if (!line.starts_with(key)) return std::nullopt;
  return line.substr(key.size());
}

}  // namespace tarvo
