#pragma once

#include <cstdint>
#include <string>

#include "platform/registry.h"
#include "toolkit/controls.h"

namespace tarvo {

/// String values of one registry key of the machine, and the controls that show them.
///
/// A missing value, or one of another type than string, takes its default. A value that cannot be
/// converted is a fault (13, 6) whose source is the value's name. Flags, numbers and choices are
/// plain decimal text. A refused write goes unnoticed. The registry must outlive the store.
class SettingsStore {
 public:
  SettingsStore(Registry& registry, std::string keyPath)
      : registry_(registry), keyPath_(std::move(keyPath)) {}

  std::string Text(const std::string& name, const std::string& whenMissing = {});
  std::int32_t Integer(const std::string& name, const std::string& whenMissing);
  /// Checks the box for every text but "0".
  void ReadFlag(const std::string& name, CheckBox& box);

  void Write(const std::string& name, const std::string& text);
  void WriteFlag(const std::string& name, const CheckBox& box);
  /// "0" or "1" when that option is selected, else "2".
  void WriteChoice(const std::string& name, const OptionGroup& options);
  void Erase(const std::string& name);

 private:
  Registry& registry_;
  const std::string keyPath_;
};

}  // namespace tarvo
