#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "core/component.h"
#include "core/settings_store.h"
#include "toolkit/controls.h"
#include "toolkit/main_window.h"
#include "toolkit/timer_queue.h"

namespace tarvo {

/// The controls that show and edit the settings of the servers and of the launcher itself.
struct SettingsControls {
  PerComponent<DropDownList>& executables;
  PerComponent<DropDownList>& priorities;
  PerComponent<CheckBox>& autoStart;
  std::span<CheckBox, kComponentCount> autokill;
  PerComponent<TextBox>& autokillTimes;
  CheckBox& mapRestartsAll;
  CheckBox& writesLogFile;
  DropDownList& logFileLevels;
  CheckBox& startsMinimized;
  PerComponent<Timer>& probe;
  TabView& pages;
  MainWindow& window;
};

/// Index of the first of these file names, in their order, that contains the stored text, letter
/// case included; -1 when none does.
int ExecutableOf(const std::vector<std::string>& names, const std::string& stored);

/// What stands for a component's executable, and for its autokill time, when nothing is stored.
const char* UsualExecutable(ComponentKind kind);
const char* UsualAutokillTime(ComponentKind kind);

/// The text of an autokill time after a change: a text of digits stays; any other becomes the
/// number that it starts with, 0 when there is none.
std::string CleanedSeconds(const std::string& text);

/// The settings of the servers and of the launcher itself. They are read and saved in parts, since
/// other rooms' settings come between them.
///
/// An index outside its list is a fault (380) whose source is the value's name. An index of -1
/// means no selection. The check intervals are read and never written: they are set in the registry
/// by hand.
class LauncherSettings {
 public:
  LauncherSettings(const SettingsControls& controls, ComponentTable& components,
                   SettingsStore& store)
      : controls_(controls), components_(components), store_(store) {}

  /// Each part is read once at start-up, after the executables are listed. Nothing is written.
  void LoadServers();
  void LoadAutokill();
  /// Sets the window's state last, if the window is to start minimized.
  void LoadWindow();

  /// Writes what the operator can edit.
  void SaveServers(SettingsStore& store) const;
  void SaveAutokill(SettingsStore& store) const;

  /// The autokill time box of a component can be used exactly when its check box is checked. Any
  /// other index, that of the map autokill of all components, has no box and is ignored.
  void chkAK_Click(std::size_t index);

 private:
  void LoadExecutables();
  void LoadCheckIntervals();
  void LoadTimeouts();
  void LoadPriorities();
  void LoadAutoStart();
  void LoadLogFile();

  SettingsControls controls_;
  ComponentTable& components_;
  SettingsStore& store_;
};

}  // namespace tarvo
