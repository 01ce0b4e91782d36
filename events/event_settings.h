#pragma once

#include <string>

#include "core/settings_store.h"

namespace tarvo {

/// The setting `RunOnEvent`: whether the operator's script runs at events. It is off as long as
/// nobody has switched it on, and until then nothing is stored; an empty text is off too.
class EventSettings {
 public:
  EventSettings(CheckBox& runs, SettingsStore& store) : runs_(runs), store_(store) {}

  void Load() {
    const std::string text = store_.Text(kName);
    stored_ = !text.empty();
    runs_.SetChecked(stored_ && text != "0");
  }
  void Save(SettingsStore& store) const {
    if (stored_ || runs_.Checked()) store.WriteFlag(kName, runs_);
  }

 private:
  static constexpr char kName[] = "RunOnEvent";

  CheckBox& runs_;
  SettingsStore& store_;
  bool stored_ = false;
};

}  // namespace tarvo
