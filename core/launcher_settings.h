#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "core/component.h"
#include "core/server_root.h"
#include "form/form.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/registry.h"

namespace tarvo {

/// The settings of one server root: string values of its registry key, shown and edited in the
/// form.
///
/// A missing value, or one of another type than string, takes its default. A value that cannot be
/// converted, or an index outside its list, is a fault (13, 6 or 380) whose source is the value's
/// name. Flags and choices are plain decimal text. An index of -1 means no selection.
///
/// The boxes of the two randomizer limits are crossed with the names of their values, and stored
/// settings depend on it: `MaxRndDay` holds the limit an hour, `MaxRndHour` that a day. The check
/// intervals are read and never written: they are set in the registry by hand. `LastRandomize` may
/// be a date's number as well; 0 is no moment at all.
class LauncherSettings {
 public:
  LauncherSettings(Form& form, ComponentTable& components, Registry& registry,
                   const ServerRoot& root, LocalClock& clock)
      : form_(form),
        components_(components),
        registry_(registry),
        settingsKey_(root.SettingsKey()),
        clock_(clock) {}

  /// Reads every value into the form, once at start-up, after the executables are listed. Writes
  /// nothing. When the window is to start minimized, its state is the last thing that is set.
  void Load();

  /// Writes what the operator can edit. A refused write goes unnoticed.
  void Save();

  /// The upgrade loads its own values here: after the randomizer's, before the autokill boxes act.
  std::function<void()> loadUpgradeSettings;

  LocalTime LastRandomize() const { return lastRandomize_; }
  std::int32_t DayRndCnt() const { return dayRndCnt_; }
  std::int32_t HourRndCnt() const { return hourRndCnt_; }

 private:
  std::string Read(const std::string& name, const std::string& defaultText);
  std::int32_t ReadInteger(const std::string& name, const std::string& defaultText);
  void ReadFlag(const std::string& name, CheckBox& box);
  void ReadIndex(const std::string& name, const std::string& defaultText, DropDownList& list);
  void Write(const std::string& name, const std::string& text);
  void WriteFlag(const std::string& name, const CheckBox& box);

  void LoadExecutables();
  void LoadCheckIntervals();
  void LoadTimeouts();
  void LoadPriorities();
  void LoadAutoStart();
  void LoadLogFile();
  void LoadAutokill();
  void LoadRandomizer();
  void LoadStartMinimized();

  Form& form_;
  ComponentTable& components_;
  Registry& registry_;
  const std::string settingsKey_;
  LocalClock& clock_;
  LocalTime lastRandomize_{};
  std::int32_t dayRndCnt_ = 0;
  std::int32_t hourRndCnt_ = 0;
};

/// The autokill time box of a component can be used exactly when its check box is checked. Index 3,
/// the map autokill of all components, has no box.
void chkAK_Click(ServersPage& page, std::size_t index);

}  // namespace tarvo
