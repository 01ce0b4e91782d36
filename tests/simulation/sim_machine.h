#pragma once

#include <optional>
#include <string>

#include "platform/machine.h"
#include "tests/simulation/call_recorder.h"
#include "tests/simulation/sim_answer_lines.h"
#include "tests/simulation/sim_clipboard.h"
#include "tests/simulation/sim_clock.h"
#include "tests/simulation/sim_code_page.h"
#include "tests/simulation/sim_desktop.h"
#include "tests/simulation/sim_documents.h"
#include "tests/simulation/sim_event_log.h"
#include "tests/simulation/sim_file_copies.h"
#include "tests/simulation/sim_files.h"
#include "tests/simulation/sim_inspection.h"
#include "tests/simulation/sim_network.h"
#include "tests/simulation/sim_notification_area.h"
#include "tests/simulation/sim_processes.h"
#include "tests/simulation/sim_random.h"
#include "tests/simulation/sim_registry.h"
#include "tests/simulation/sim_scripts.h"
#include "tests/simulation/sim_self_restart.h"
#include "tests/simulation/sim_working_folder.h"

namespace tarvo {

inline constexpr char kLogin[] = "login-server.exe";
inline constexpr char kChar[] = "char-server.exe";
inline constexpr char kMap[] = "map-server.exe";
inline constexpr const char* kServers[] = {kLogin, kChar, kMap};

/// A whole machine in memory. It begins with a server root in C:\srv: the launcher, the three
/// servers, each listening on its usual port once it is started, and their conf files; the registry
/// is empty, nothing runs but the desktop's own process.
class SimMachine {
 public:
  SimMachine();

  CallRecorder recorder;
  SimClock clock;
  SimRegistry registry{recorder};
  SimCodePage codePage;
  SimFiles files{recorder, clock, codePage};
  SimWorkingFolder workingFolder{recorder};
  SimProcesses processes{recorder, clock, files, workingFolder, codePage};
  SimFileCopies copies{recorder, files, processes};
  SimFileDialog fileDialog{recorder, workingFolder};
  SimNetwork network{recorder, clock, processes};
  SimInspection inspection{recorder, clock, files, copies, processes};
  SimClipboard clipboard;
  SimMemory memory{recorder};
  SimMessageBoxes boxes{recorder};
  SimEventLog eventLog{recorder};
  SimRandom random{recorder};
  SimLockTable locks;
  SimNotificationArea tray{recorder};
  SimIcons icons;
  SimDocuments documents{files};
  SimSelfRestart selfRestart{recorder, clock};
  SimScripts scripts{recorder, clock};
  SimAnswerLines answerLines{recorder};
  std::string launcherPath = "C:\\srv\\tarvo-launcher.exe";
  bool launcherPathInCodePage = true;
  /// Where `launcherPath` really is, when it stands in a folder with a second name.
  std::optional<std::string> launcherRealFolder;

  /// The ports of one program on this machine.
  Machine PortsFor(InstanceLock& lock);

  /// What the system does about a launcher whose process has just been ended: its lock, its sockets
  /// and its windows are gone. Its icon stays.
  void BuryLauncher();

  /// The values of the root that `launcherPath` stands in.
  std::string SettingsKey() const;
  void SetSetting(const std::string& name, const std::string& text);
  /// "(none)" when there is no such value.
  std::string Setting(const std::string& name) const;

  /// Puts conf files with these lines into a folder, and the ones that every root has beside them.
  void PutConf(const std::string& folder, const std::string& charConf, const std::string& mapConf);
};

/// The conf files of the machine's first root.
std::string UsualCharConf();
std::string UsualMapConf();
std::string UsualBattleConf();

}  // namespace tarvo
