#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "checkup/choices.h"
#include "checkup/conf_checks.h"
#include "checkup/endpoint_checks.h"
#include "checkup/executable_checks.h"
#include "checkup/finding.h"
#include "checkup/folder_checks.h"
#include "checkup/upgrade_checks.h"
#include "core/server_root.h"
#include "platform/clock.h"
#include "platform/code_page.h"
#include "platform/file_inspection.h"
#include "platform/files.h"
#include "platform/foreign_windows.h"
#include "platform/network_inspection.h"
#include "platform/process_inspection.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/sockets.h"

namespace tarvo {

/// What a check-up looks at.
struct CheckUpPorts {
  Registry& registry;
  FileReader& files;
  FolderLister& folders;
  FileDiagnosis& diagnosis;
  FileInspection& inspection;
  Processes& processes;
  ProcessInspection& processInspection;
  ForeignWindows& windows;
  NetworkInspection& network;
  Sockets& sockets;
  CodePage& codePage;
  LocalClock& clock;
};

/// Looks a server root over and tells what keeps it from working as the operator expects.
///
/// It only reads. It is made of many small parts, so that it can go on beside the supervision: none
/// waits longer than `kLongestWait` for a name, a drive or a share, and no more than `kMostBytes`
/// are read of any file. The sockets library has to be started. All references must outlive it.
class CheckUp {
 public:
  static constexpr std::uint32_t kLongestWait = 250;  ///< Milliseconds.
  static constexpr int kMostWaits = 4;                ///< For one name, drive or share.
  static constexpr std::size_t kMostBytes = 16 * 1024 * 1024;

  /// `executablePath` and `pathInCodePage` are the machine's.
  CheckUp(const CheckUpPorts& ports, const ServerRoot& root, std::string executablePath,
          bool pathInCodePage)
      : with_(ports),
        root_(root),
        executablePath_(std::move(executablePath)),
        pathInCodePage_(pathInCodePage) {}

  /// Forgets what was found and begins anew, with what the window shows; without that, with what is
  /// stored.
  void Begin(std::optional<Choices> choices = std::nullopt);
  /// Does the next small part. False when nothing is left to do.
  bool Step();
  /// All parts, one after the other.
  void RunWhole(std::optional<Choices> choices = std::nullopt);

  /// What was found: complete, and in order, when `Step` has returned false.
  const Findings& Found() const { return findings_; }

 private:
  /// Each returns whether it is done; one that waits for somebody is called again.
  using Work = bool (CheckUp::*)(ComponentKind kind);
  struct Part {
    Work work;
    ComponentKind kind;
  };
  static const std::vector<Part>& Parts();

  bool LookAtRoot(ComponentKind kind);
  bool TakeChoices(ComponentKind kind);
  bool LookAtExecutable(ComponentKind kind);
  bool ReadConf(ComponentKind kind);
  bool ReadSets(ComponentKind kind);
  bool Resolve(ComponentKind kind);
  bool LookAtProcesses(ComponentKind kind);
  bool CheckChosen(ComponentKind kind);
  bool LookAtListeners(ComponentKind kind);
  bool LookAtFolder(ComponentKind kind);
  bool ReadSettings(ComponentKind kind);
  bool LookAtNewFile(ComponentKind kind);
  bool CompareNewFiles(ComponentKind kind);

  void Tell(Findings findings);
  std::string PathOf(const std::string& name) const { return root_.WithSeparator() + name; }
  std::optional<FileLook> LookPatiently(const std::string& path);
  void ReadConfFile(const std::string& file);
  NamesakeFacts FactsOf(ProcessId id, ComponentKind kind, bool& answered);
  bool IsComponent(ComponentKind kind, const HolderFacts& holder);
  std::optional<std::uint32_t> SessionOfLauncher();
  bool SameName(const std::string& one, const std::string& other);
  void NoteUnwritable(const std::string& path);
  std::optional<std::string> StoredText(Hive hive, const std::string& key, const std::string& name);

  CheckUpPorts with_;
  const ServerRoot& root_;
  const std::string executablePath_;
  const bool pathInCodePage_;

  std::size_t part_ = 0;
  int waits_ = 0;
  Findings findings_;
  std::optional<Choices> given_;
  Choices choices_;
  FolderFacts folder_;
  PerComponent<EndpointFacts> endpoints_;
  PerComponent<HostFacts> hosts_;
  PerComponent<ExecutableFacts> executables_;
  PerComponent<UpgradeFacts> upgrade_;
  std::vector<ProcessEntry> snapshot_;
  PerComponent<std::vector<NamesakeFacts>> namesakes_;
};

}  // namespace tarvo
