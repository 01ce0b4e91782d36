#pragma once

#include <string>
#include <vector>

#include "core/restart_state.h"
#include "platform/registry.h"

namespace tarvo {

/// The registry as a launcher that was restarted after a fault sees it: values of its settings key
/// that its predecessor had not saved yet take precedence over the stored ones, until they are
/// written. Every other path and value is passed on unchanged.
class HandedSettings final : public Registry {
 public:
  HandedSettings(Registry& below, std::string settingsKey)
      : below_(below), settingsKey_(std::move(settingsKey)) {}

  /// These values take precedence over the stored ones from now on.
  void Take(std::vector<SettingText> settings) { handed_ = std::move(settings); }

  std::optional<RegistryData> Query(Hive hive, const std::string& keyPath,
                                    const std::string& valueName) override;
  bool WriteText(Hive hive, const std::string& keyPath, const std::string& valueName,
                 const std::string& text) override;
  void Erase(Hive hive, const std::string& keyPath, const std::string& valueName) override;

 private:
  bool IsSetting(Hive hive, const std::string& keyPath) const;
  void Drop(Hive hive, const std::string& keyPath, const std::string& valueName);

  Registry& below_;
  const std::string settingsKey_;
  std::vector<SettingText> handed_;
};

/// A registry in memory that keeps what is written, in order, so that settings can be handed on
/// instead of being stored. Reading finds nothing.
class CollectedSettings final : public Registry {
 public:
  std::optional<RegistryData> Query(Hive, const std::string&, const std::string&) override {
    return std::nullopt;
  }
  bool WriteText(Hive, const std::string&, const std::string& valueName,
                 const std::string& text) override {
    settings_.push_back({valueName, text});
    return true;
  }
  void Erase(Hive, const std::string&, const std::string&) override {}

  const std::vector<SettingText>& Settings() const { return settings_; }

 private:
  std::vector<SettingText> settings_;
};

}  // namespace tarvo
