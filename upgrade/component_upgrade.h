#pragma once

#include <array>
#include <string>

#include "core/component.h"
#include "core/launcher_events.h"
#include "core/start_stop.h"
#include "core/status_log.h"
#include "platform/clock.h"
#include "platform/file_inspection.h"
#include "platform/message_boxes.h"
#include "toolkit/controls.h"
#include "toolkit/main_window.h"
#include "upgrade/patient_copies.h"
#include "upgrade/upgrade_boxes.h"
#include "upgrade/upgrade_settings.h"

namespace tarvo {

/// What the upgrade reads and acts on.
struct UpgradeControls {
  const PerComponent<PathBox>& newFiles;
  const PerComponent<DropDownList>& executables;
  /// 0 makes a backup, 1 upgrades all three or none, 2 selects the trigger "by hand" afterwards.
  const std::array<CheckBox, 3>& options;
  OptionGroup& trigger;  ///< 0 by hand, 1 a crash of the map server, 2 any crash.
  TabView& pages;
  const MainWindow& window;
};

/// Replaces the three server executables of the root by newly built ones, keeps a dated copy of the
/// old ones in `LBackup`, and starts again what ran. An executable is new when the text of its
/// last-modified date differs from the one remembered from the upgrade before.
///
/// A new executable that the backup is about to write over, since it is the backup of the same
/// minute, is copied aside first, into `LBackup` under "new_" and the name of its component's
/// backup, and removed from there when all three are in place. A fault or a kill in between leaves
/// the copy.
class ComponentUpgrade {
 public:
  /// What the upgrade works with.
  struct Parts {
    UpgradeControls controls;
    ComponentTable& components;
    StartStop& startStop;
    StatusLog& log;
    const LauncherEvents& events;
    UpgradeSettings& settings;
    FileInspection& inspection;
    PatientCopies copies;
    LocalClock& clock;
    MessageBoxes& messageBoxes;
    std::string appFolder;
  };

  explicit ComponentUpgrade(Parts parts) : with_(std::move(parts)) {}

  /// The operator's upgrade: asks first when a component runs, and shows the result in a message
  /// box.
  void UpdateNow_Click();

  /// Shows the operator the result of an upgrade in a message box, by its code; kUpgradeSeeLog also
  /// shows the page of the log. An unknown code shows nothing.
  void ShowResult(int code);

  /// Upgrades all three executables before it returns, within one event. `trigger` is 0 for the
  /// operator, 1, 2, 3 when login, char, map has crashed; that component is started afterwards
  /// whether or not it ran. Returns a code of upgrade_boxes.h, 0 when the upgrade is done. A
  /// refused upgrade (any other code) has touched no file and stopped nothing.
  ///
  /// A new executable whose drive or share does not answer counts as missing: after two seconds
  /// when a server has crashed, which is down meanwhile, and after half a minute for the operator.
  ///
  /// A folder or copy that fails is a fault of the run time (see `PatientCopies`): what was copied
  /// stays copied, no date is remembered, and nothing is started again.
  int RunUpgrade(int trigger);

  /// The component has crashed: upgrades if the chosen trigger applies. True when the upgrade has
  /// started again what has to run; false when the component is still to be started, since the
  /// trigger does not apply, the upgrade was refused, or the component died while another upgrade
  /// stops the servers.
  bool TakesOverCrash(ComponentKind kind);

 private:
  using DateTexts = PerComponent<std::string>;
  using Marks = PerComponent<bool>;
  using Paths = PerComponent<std::string>;

  int Upgrade(int trigger);
  int CheckPaths(int trigger);
  int Refuse(int code, const std::string& reason);
  Marks ReadNewDates(DateTexts& dates);
  bool MayGoOn(const Marks& isNew);
  Marks StopRunning(int trigger);
  Paths NewFiles() const;
  void BackUp(Paths& sources);
  void TakeAside(const Paths& saved, Paths& sources);
  void Replace(const Paths& sources);
  void Remember(const DateTexts& dates);
  void StartAgain(const Marks& toRestart);

  Parts with_;
  bool upgradeInProgress_ = false;  ///< While the running components are being stopped.
};

}  // namespace tarvo
