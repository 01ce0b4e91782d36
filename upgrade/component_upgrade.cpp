#include "upgrade/component_upgrade.h"

#include <algorithm>

#include "support/date_time.h"
#include "support/runtime_error.h"

namespace tarvo {
namespace {

constexpr std::uint32_t kLongestLookAfterCrash = 2000;
constexpr std::uint32_t kLongestLookForOperator = 30000;
constexpr std::size_t kDigitsToTheMinute = 12;

std::string Doing(const char* what, ComponentKind kind) {
  return std::string(what) + " " + NameOf(kind) + " Server...";
}

}  // namespace

void ComponentUpgrade::UpdateNow_Click() {
  const bool anyRuns = std::any_of(with_.components.begin(), with_.components.end(),
                                   [](const Component& c) { return c.ProcessId != 0; });
  if (anyRuns && with_.messageBoxes.Ask(UpgradeQuestion()) != Answer::Yes) return;
  // A tick during the question may have ended the program.
  if (with_.controls.window.Ended()) return;
  ShowResult(RunUpgrade(0));
}

void ComponentUpgrade::ShowResult(int code) {
  if (const auto box = UpgradeBoxFor(code, with_.controls.newFiles)) with_.messageBoxes.Ask(*box);
  if (code == kUpgradeSeeLog) with_.controls.pages.SetPage(0);
}

int ComponentUpgrade::RunUpgrade(int trigger) {
  try {
    return Upgrade(trigger);
  } catch (const RuntimeError& fault) {
    // It goes on to the dispatch; who is told of upgrades hears here that this one has no end.
    with_.events.Report(LauncherEvent::UpgradeFailed, std::nullopt,
                        fault.Description() + ": " + fault.Source());
    throw;
  }
}

int ComponentUpgrade::Upgrade(int trigger) {
  if (const int refusal = CheckPaths(trigger); refusal != kUpgradeDone) return refusal;
  DateTexts dates;
  const Marks isNew = ReadNewDates(dates);
  if (std::none_of(isNew.begin(), isNew.end(), [](bool mark) { return mark; })) {
    return kUpgradeNothingNew;
  }
  with_.log.LogStatus("Upgrade in progress...", kNotice);
  if (!MayGoOn(isNew)) return kUpgradeNotAllNew;
  const Marks toRestart = StopRunning(trigger);
  Paths sources = NewFiles();
  if (with_.controls.options[0].Checked()) BackUp(sources);
  Replace(sources);
  Remember(dates);
  StartAgain(toRestart);
  if (with_.controls.options[2].Checked()) {
    with_.controls.trigger[0].Select();
    with_.settings.optMode_Click(0);
  }
  with_.settings.ShowLastUpgrade();
  return kUpgradeDone;
}

bool ComponentUpgrade::TakesOverCrash(ComponentKind kind) {
  const OptionGroup& trigger = with_.controls.trigger;
  const bool holds = trigger[2].Selected() || (kind == ComponentKind::Map && trigger[1].Selected());
  if (!holds || upgradeInProgress_) return false;
  return RunUpgrade(static_cast<int>(IndexOf(kind)) + 1) == kUpgradeDone;
}

int ComponentUpgrade::CheckPaths(int trigger) {
  const auto& newFiles = with_.controls.newFiles;
  const bool anyEmpty = std::any_of(newFiles.begin(), newFiles.end(),
                                    [](const PathBox& box) { return box.Text().empty(); });
  if (anyEmpty) {
    return Refuse(kUpgradeNotChosen, "Please, select the right new components (login, char, map)");
  }
  const std::string& login = newFiles[ComponentKind::Login].Text();
  const std::string& charServer = newFiles[ComponentKind::Char].Text();
  const std::string& map = newFiles[ComponentKind::Map].Text();
  if (login == charServer || login == map || charServer == map) {
    return Refuse(kUpgradeSameFile, "Please select the right components.");
  }
  const std::uint32_t longest = trigger == 0 ? kLongestLookForOperator : kLongestLookAfterCrash;
  for (ComponentKind kind : kComponents) {
    const std::string& path = newFiles[kind].Text();
    const FileLook look = with_.inspection.LookAt(path, longest);
    if (look.outcome == FileLook::Outcome::There && !look.isFolder) continue;
    return Refuse(kUpgradeFirstMissing + static_cast<int>(IndexOf(kind)), "File missing: " + path);
  }
  return kUpgradeDone;
}

int ComponentUpgrade::Refuse(int code, const std::string& reason) {
  const std::string text = "Update Error: " + reason;
  with_.log.LogStatus(text, kAlert);
  with_.events.Report(LauncherEvent::UpgradeFailed, std::nullopt, text);
  return code;
}

ComponentUpgrade::Marks ComponentUpgrade::ReadNewDates(DateTexts& dates) {
  for (ComponentKind kind : kComponents) dates[kind] = with_.settings.StoredDate(kind);
  Marks isNew{};
  for (ComponentKind kind : kComponents) {
    const std::string text = with_.copies.DateText(with_.controls.newFiles[kind].Text());
    isNew[kind] = text != dates[kind];
    dates[kind] = text;
  }
  return isNew;
}

bool ComponentUpgrade::MayGoOn(const Marks& isNew) {
  if (std::all_of(isNew.begin(), isNew.end(), [](bool mark) { return mark; })) return true;
  if (with_.controls.options[1].Checked()) {
    const char* const text = "Error, some server component have not changes! - Upgrade stopped";
    with_.log.LogStatus(text, kAlert);
    with_.events.Report(LauncherEvent::UpgradeFailed, std::nullopt, text);
    return false;
  }
  with_.log.LogStatus("Warning, some server component have not changes!", kNotice);
  return true;
}

ComponentUpgrade::Marks ComponentUpgrade::StopRunning(int trigger) {
  Marks toRestart{};
  upgradeInProgress_ = true;
  for (ComponentKind kind : kComponents) {
    if (with_.components[kind].ProcessId != 0) {
      with_.log.LogStatus(Doing("Stopping", kind), kInfo);
      with_.startStop.StopComponent(kind);
      toRestart[kind] = true;
    }
    if (trigger == static_cast<int>(IndexOf(kind)) + 1) toRestart[kind] = true;
  }
  upgradeInProgress_ = false;
  return toRestart;
}

ComponentUpgrade::Paths ComponentUpgrade::NewFiles() const {
  Paths paths;
  for (ComponentKind kind : kComponents) paths[kind] = with_.controls.newFiles[kind].Text();
  return paths;
}

void ComponentUpgrade::BackUp(Paths& sources) {
  const std::string folder = with_.appFolder + "\\LBackup";
  if (!with_.copies.FolderExists(folder)) {
    with_.log.LogStatus("Creating LBackup folder (first time)", kExtra);
    with_.copies.MakeFolder(folder);
  }
  const std::string stamp = DateStamp(with_.clock.Now()).substr(0, kDigitsToTheMinute);
  Paths saved;
  for (ComponentKind kind : kComponents) {
    saved[kind] = "\\LBackup\\" + stamp + "_" + with_.controls.executables[kind].Text();
  }
  TakeAside(saved, sources);
  for (ComponentKind kind : kComponents) {
    const std::string exe = with_.controls.executables[kind].Text();
    with_.log.LogStatus("Saving " + exe + " as " + saved[kind], kExtra);
    with_.copies.CopyOver(with_.settings.TargetPath(kind), with_.appFolder + saved[kind]);
  }
}

void ComponentUpgrade::TakeAside(const Paths& saved, Paths& sources) {
  for (ComponentKind kind : kComponents) {
    const auto overwrites = [&](const std::string& backup) {
      return with_.copies.SameFile(sources[kind], with_.appFolder + backup);
    };
    if (std::none_of(saved.begin(), saved.end(), overwrites)) continue;
    const std::string name = saved[kind].substr(saved[kind].rfind('\\') + 1);
    const std::string aside = with_.appFolder + "\\LBackup\\new_" + name;
    with_.copies.CopyOver(sources[kind], aside);
    sources[kind] = aside;
  }
}

void ComponentUpgrade::Replace(const Paths& sources) {
  for (ComponentKind kind : kComponents) {
    with_.log.LogStatus(Doing("Upgrading", kind), kExtra);
    with_.copies.CopyOver(sources[kind], with_.settings.TargetPath(kind));
  }
  const Paths chosen = NewFiles();
  for (ComponentKind kind : kComponents) {
    if (sources[kind] != chosen[kind]) with_.copies.Remove(sources[kind]);
  }
}

void ComponentUpgrade::Remember(const DateTexts& dates) {
  for (ComponentKind kind : kComponents) with_.settings.StoreDate(kind, dates[kind]);
  const char* const text = "Upgrade complete!";
  with_.log.LogStatus(text, kExtra);
  with_.settings.StoreLastUpgrade(GeneralDate(with_.clock.Now()));
  with_.events.Report(LauncherEvent::Upgraded, std::nullopt, text);
}

void ComponentUpgrade::StartAgain(const Marks& toRestart) {
  for (ComponentKind kind : kComponents) {
    if (!toRestart[kind]) continue;
    with_.log.LogStatus(Doing("Starting", kind), kNotice);
    with_.startStop.StartComponent(kind);
  }
}

}  // namespace tarvo
