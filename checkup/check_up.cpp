#include "checkup/check_up.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "checkup/root_sets.h"
#include "checkup/settings_checks.h"
#include "core/per_user_registry.h"
#include "core/process_control.h"
#include "support/date_time.h"
#include "support/text.h"

namespace tarvo {
namespace {

constexpr std::uint32_t kNoAddress = 0xFFFFFFFF;
constexpr std::size_t kDigitsOfADay = 8;
constexpr ComponentKind kOnce = ComponentKind::Login;

}  // namespace

const std::vector<CheckUp::Part>& CheckUp::Parts() {
  static const std::vector<Part> parts = [] {
    std::vector<Part> all = {{&CheckUp::LookAtRoot, kOnce}, {&CheckUp::TakeChoices, kOnce}};
    const auto addForEach = [&all](Work work) {
      for (ComponentKind kind : kComponents) all.push_back({work, kind});
    };
    addForEach(&CheckUp::LookAtExecutable);
    all.push_back({&CheckUp::ReadConf, kOnce});
    all.push_back({&CheckUp::ReadSets, kOnce});
    addForEach(&CheckUp::Resolve);
    addForEach(&CheckUp::LookAtProcesses);
    all.push_back({&CheckUp::CheckChosen, kOnce});
    all.push_back({&CheckUp::LookAtListeners, kOnce});
    all.push_back({&CheckUp::LookAtFolder, kOnce});
    all.push_back({&CheckUp::ReadSettings, kOnce});
    addForEach(&CheckUp::LookAtNewFile);
    all.push_back({&CheckUp::CompareNewFiles, kOnce});
    return all;
  }();
  return parts;
}

void CheckUp::Begin(std::optional<Choices> choices) {
  part_ = 0;
  waits_ = 0;
  findings_.clear();
  given_ = std::move(choices);
  folder_ = {};
  folder_.inCodePage = pathInCodePage_;
  endpoints_ = {};
  hosts_ = {};
  executables_ = {};
  upgrade_ = {};
  namesakes_ = {};
}

bool CheckUp::Step() {
  if (part_ >= Parts().size()) return false;
  const Part& part = Parts()[part_];
  if (!(this->*part.work)(part.kind)) return true;
  waits_ = 0;
  ++part_;
  if (part_ < Parts().size()) return true;
  snapshot_.clear();
  PutInOrder(findings_);
  return false;
}

void CheckUp::RunWhole(std::optional<Choices> choices) {
  Begin(std::move(choices));
  while (Step()) continue;
}

void CheckUp::Tell(Findings findings) {
  for (Finding& finding : findings) findings_.push_back(std::move(finding));
}

/// Nothing while it is worth asking once more.
std::optional<FileLook> CheckUp::LookPatiently(const std::string& path) {
  const FileLook look = with_.inspection.LookAt(path, kLongestWait);
  const bool asksAgain = look.outcome == FileLook::Outcome::NotAnswered && ++waits_ < kMostWaits;
  if (asksAgain) return std::nullopt;
  return look;
}

/// Without the folder nothing else can be said.
bool CheckUp::LookAtRoot(ComponentKind /*once*/) {
  if (folder_.inCodePage) {
    const auto look = LookPatiently(root_.AppFolder() + "\\");
    if (!look) return false;
    folder_.answers = look->outcome == FileLook::Outcome::There;
  }
  if (folder_.inCodePage && folder_.answers) return true;
  Tell(CheckFolder(folder_));
  part_ = Parts().size() - 1;
  return true;
}

bool CheckUp::TakeChoices(ComponentKind /*once*/) {
  PerUserRegistry registry(with_.registry);
  SettingsStore store(registry, root_.SettingsKey());
  if (given_) {
    choices_ = *given_;
  } else {
    choices_ = StoredChoices(store, with_.folders.FilesEndingWith(root_.AppFolder(), ".exe"));
  }
  Tell(CheckWatch(choices_));
  return true;
}

bool CheckUp::LookAtExecutable(ComponentKind kind) {
  ExecutableFacts& facts = executables_[kind];
  facts.name = choices_.of[kind].executable;
  if (facts.name.empty()) return true;
  const auto look = LookPatiently(PathOf(facts.name));
  if (!look) return false;
  upgrade_[kind].atTarget = *look;
  folder_.executablesSize += look->size;
  facts.present = look->outcome == FileLook::Outcome::There && !look->isFolder;
  facts.isLauncher = SameName(facts.name, root_.ExecutableName() + ".exe");
  std::string bytes;
  facts.readable =
      with_.inspection.ReadBeginning(PathOf(facts.name), kHeaderBytes, bytes) == ReadResult::Ok;
  facts.header = ReadProgramHeader(bytes);
  facts.processorFits = with_.processInspection.StartsProgramsFor(facts.header.processor);
  return true;
}

void CheckUp::ReadConfFile(const std::string& file) {
  const std::string path = PathOf("conf\\" + file);
  std::string text;
  const ReadResult result = with_.inspection.ReadBeginning(path, kMostBytes + 1, text);
  if (result != ReadResult::Ok) {
    const auto why = with_.diagnosis.WhyUnreadable(path);
    folder_.unread.push_back({"conf\\" + file, why ? why->description : ""});
    return;
  }
  const bool cut = text.size() > kMostBytes;
  if (cut) text.resize(kMostBytes);
  const ConfText conf{file, text, cut};
  Tell(CheckLineEnds(conf));
  Tell(CheckMissedKeys(conf));
  TakeEndpoints(ValuesOf(conf), !cut, endpoints_);
}

bool CheckUp::ReadConf(ComponentKind /*once*/) {
  if (!with_.files.Exists(PathOf("conf\\login_athena.conf"))) {
    const auto why = with_.diagnosis.WhyUnreadable(PathOf("conf\\login_athena.conf"));
    folder_.unread.push_back({"conf\\login_athena.conf", why ? why->description : ""});
  }
  for (EndpointFacts& endpoint : endpoints_) endpoint.port = 0;
  for (const char* file : kConfigurationFiles) ReadConfFile(file);
  Tell(CheckPorts(endpoints_));
  return true;
}

bool CheckUp::ReadSets(ComponentKind /*once*/) {
  Tell(CheckSetsOf(root_, with_.inspection, with_.files, kMostBytes));
  return true;
}

bool CheckUp::Resolve(ComponentKind kind) {
  const std::string& host = endpoints_[kind].host;
  HostFacts& facts = hosts_[kind];
  facts.outcome = HostFacts::Outcome::Unknown;
  if (!host.empty()) {
    facts.outcome = HostFacts::Outcome::Address;
    facts.address = with_.sockets.DottedAddress(host);
    if (facts.address == kNoAddress) {
      const HostAnswer answer = with_.sockets.FirstAddressOf(host, kLongestWait);
      if (answer.outcome == LookUp::NotAnswered && ++waits_ < kMostWaits) return false;
      const bool found = answer.outcome == LookUp::Found && answer.address.size() >= 4;
      if (found) std::memcpy(&facts.address, answer.address.data(), sizeof facts.address);
      if (!found) {
        facts.outcome = answer.outcome == LookUp::NotAnswered ? HostFacts::Outcome::NotAnswered
                                                              : HostFacts::Outcome::Unknown;
      }
    }
  }
  facts.own = IsOwnAddress(facts.address, with_.network.OwnAddresses());
  Tell(CheckHost(kind, host, facts, choices_.of[kind].autokill));
  return true;
}

bool CheckUp::SameName(const std::string& one, const std::string& other) {
  return with_.codePage.Lowered(one) == with_.codePage.Lowered(other);
}

/// The session of the launcher that runs in this root; when none but this one does, of this one.
std::optional<std::uint32_t> CheckUp::SessionOfLauncher() {
  const std::string name = root_.ExecutableName() + ".exe";
  ProcessInspection& inspection = with_.processInspection;
  for (const ProcessEntry& entry : snapshot_) {
    if (entry.id == inspection.OwnId()) continue;
    if (!SameName(entry.executable, name)) continue;
    if (!SameName(inspection.PathOf(entry.id), executablePath_)) continue;
    return inspection.SessionOf(entry.id);
  }
  return inspection.SessionOf(inspection.OwnId());
}

/// After a look that was not `answered` no other one is waited for.
NamesakeFacts CheckUp::FactsOf(ProcessId id, ComponentKind kind, bool& answered) {
  NamesakeFacts facts;
  facts.process = id;
  facts.path = with_.processInspection.PathOf(id);
  const std::string target = PathOf(choices_.of[kind].executable);
  facts.fromRoot = SameName(facts.path, target);
  if (!facts.fromRoot && !facts.path.empty() && answered) {
    const FileLook look = with_.inspection.LookAt(facts.path, kLongestWait);
    answered = look.outcome != FileLook::Outcome::NotAnswered;
    const std::string& identity = upgrade_[kind].atTarget.identity;
    facts.fromRoot = !identity.empty() && look.identity == identity;
  }
  const auto session = with_.processInspection.SessionOf(id);
  facts.otherSession = session && session != SessionOfLauncher();
  return facts;
}

bool CheckUp::LookAtProcesses(ComponentKind kind) {
  constexpr std::size_t kMostNamesakes = 20;
  if (kind == kOnce) snapshot_ = with_.processes.Snapshot();
  const std::string& executable = choices_.of[kind].executable;
  if (executable.empty()) return true;
  const std::string wanted = with_.codePage.Lowered(executable);
  std::vector<NamesakeFacts>& namesakes = namesakes_[kind];
  bool answered = true;
  for (const ProcessEntry& entry : snapshot_) {
    if (with_.codePage.Lowered(entry.executable) != wanted) continue;
    if (namesakes.size() == kMostNamesakes) break;
    namesakes.push_back(FactsOf(entry.id, kind, answered));
    ExecutableFacts& facts = executables_[kind];
    // Not known is no reason to complain.
    facts.ownsWindow = facts.ownsWindow || MainWindowOf(with_.windows, entry.id) != 0;
  }
  Tell(CheckSameName(kind, executable, namesakes));
  return true;
}

bool CheckUp::CheckChosen(ComponentKind /*once*/) {
  Tell(CheckExecutables(executables_));
  return true;
}

/// A holder that nobody names is taken for the component, if that one runs.
bool CheckUp::IsComponent(ComponentKind kind, const HolderFacts& holder) {
  const std::vector<NamesakeFacts>& namesakes = namesakes_[kind];
  if (holder.process == 0) return !namesakes.empty();
  for (const NamesakeFacts& namesake : namesakes) {
    if (namesake.process == holder.process) return namesake.fromRoot || namesake.path.empty();
  }
  return SameName(holder.executable, choices_.of[kind].executable);
}

bool CheckUp::LookAtListeners(ComponentKind /*once*/) {
  const std::vector<Listener> listeners = with_.network.Listeners();
  for (ComponentKind kind : kComponents) {
    if (choices_.of[kind].executable.empty() || !hosts_[kind].own) continue;
    const std::int32_t port = endpoints_[kind].port.value_or(0);
    const auto listener = ListenerAt(listeners, hosts_[kind].address, port);
    if (!listener) continue;
    HolderFacts holder{listener->process, {}};
    for (const ProcessEntry& entry : snapshot_) {
      if (entry.id == holder.process) holder.executable = entry.executable;
    }
    if (!IsComponent(kind, holder)) Tell({PortHeldFinding(kind, port, holder)});
  }
  return true;
}

void CheckUp::NoteUnwritable(const std::string& path) {
  const auto fault = with_.inspection.WhyUnwritable(path);
  if (fault && fault->trouble == FileTrouble::Refused) folder_.unwritable.push_back(path);
}

bool CheckUp::LookAtFolder(ComponentKind /*once*/) {
  NoteUnwritable(root_.AppFolder());
  if (choices_.writesLogFile) {
    NoteUnwritable(PathOf(DateStamp(with_.clock.Now()).substr(0, kDigitsOfADay) + ".log"));
  }
  NoteUnwritable(PathOf("LBackup"));
  NoteUnwritable(PathOf("conf\\battle_athena.conf"));
  for (const Choices::OfComponent& of : choices_.of) {
    if (!of.newFile.empty() && !of.executable.empty()) NoteUnwritable(PathOf(of.executable));
    folder_.hasBlank = folder_.hasBlank || PathOf(of.executable).find(' ') != std::string::npos;
  }
  folder_.freeSpace = with_.inspection.FreeSpace(root_.AppFolder());
  for (const Choices::OfComponent& of : choices_.of) {
    const std::string backup = PathOf("LBackup\\yyyymmddhhnn_" + of.executable + ".tarvo-copy");
    folder_.longestBackupPath =
        std::max(folder_.longestBackupPath, LettersIn(backup, with_.codePage));
  }
  Tell(CheckFolder(folder_));
  return true;
}

std::optional<std::string> CheckUp::StoredText(Hive hive, const std::string& key,
                                               const std::string& name) {
  const auto data = with_.registry.Query(hive, key, name);
  if (!data || data->type != kRegistryText) return std::nullopt;
  return data->bytes.substr(0, data->bytes.find('\0'));
}

bool CheckUp::ReadSettings(ComponentKind /*once*/) {
  std::vector<StoredValue> values;
  const auto read = [&](const std::string& key, const SettingName& setting) {
    values.push_back({setting, StoredText(Hive::LocalMachine, key, setting.name),
                      StoredText(Hive::CurrentUser, key, setting.name)});
  };
  for (const SettingName& setting : SettingNames()) read(root_.SettingsKey(), setting);
  read(kSettingsKeyPrefix, {"Winsock", ValueRule::Number});
  Tell(CheckSettings(values));
  return true;
}

bool CheckUp::LookAtNewFile(ComponentKind kind) {
  UpgradeFacts& facts = upgrade_[kind];
  facts.newFile = choices_.of[kind].newFile;
  if (facts.newFile.empty()) return true;
  const auto look = LookPatiently(facts.newFile);
  if (look) facts.atNew = *look;
  return look.has_value();
}

bool CheckUp::CompareNewFiles(ComponentKind /*once*/) {
  Tell(CheckUpgrade(upgrade_));
  return true;
}

}  // namespace tarvo
