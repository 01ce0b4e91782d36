#include "upgrade/upgrade_settings.h"

#include "core/component.h"
#include "core/registry_text.h"
#include "support/number_text.h"
#include "support/runtime_error.h"
#include "support/text.h"

namespace tarvo {
namespace {

const char* DateName(ComponentKind kind) {
  const char* const names[] = {"LDATE", "CDATE", "MDATE"};
  return names[IndexOf(kind)];
}

/// Why a dropped file cannot be a new executable; "" when it can.
std::string DropRefusal(const std::string& path) {
  const std::string name = LowerCase(path);
  if (name.ends_with(".exe")) return {};
  if (name.ends_with(".lnk")) {
    return "This is a shortcut. Please, drop the executable that it leads to.";
  }
  return "Please, drop an executable (*.exe).";
}

std::string FromName(ComponentKind kind) { return std::string(NameOf(kind)) + "From"; }

}  // namespace

void UpgradeSettings::LoadUpgradeSettings() {
  for (ComponentKind kind : kComponents) page_.nPath[kind].SetText(Read(FromName(kind)));
  for (ComponentKind kind : kComponents) ShowTarget(kind);
  LoadMode();
  ShowLastUpgrade();
}

void UpgradeSettings::LoadMode() {
  const std::int32_t mode =
      NamingSource("UpdateMode", [this] { return ToInteger(Read("UpdateMode", "0")); });
  if (mode < 0 || mode >= static_cast<std::int32_t>(OptionGroup::Size())) return;
  page_.optMode[static_cast<std::size_t>(mode)].Select();
}

void UpgradeSettings::cmd_nBrowse_Click(ComponentKind kind) {
  const std::string chosen =
      dialog_.AskForFile({"Executables (*.exe)", "*.exe", page_.nPath[kind].Text()});
  if (!chosen.empty()) ChooseNew(kind, chosen);
}

void UpgradeSettings::nPath_Drop(ComponentKind kind, const std::string& path) {
  if (const std::string reason = DropRefusal(path); !reason.empty()) {
    messageBoxes_.Ask({reason + "\r\n" + path, BoxIcon::Exclamation});
    return;
  }
  ChooseNew(kind, path);
}

void UpgradeSettings::ChooseNew(ComponentKind kind, const std::string& path) {
  page_.nPath[kind].SetText(path);
  Write(FromName(kind), path);
}

void UpgradeSettings::optMode_Click(std::size_t index) {
  Write("UpdateMode", std::to_string(index));
}

std::string UpgradeSettings::TargetPath(ComponentKind kind) const {
  return appFolder_ + "\\" + Exes_[kind].Text();
}

void UpgradeSettings::ShowTarget(ComponentKind kind) {
  page_.oPath[IndexOf(kind)].SetCaption(TargetPath(kind));
}

std::string UpgradeSettings::StoredDate(ComponentKind kind) { return Read(DateName(kind)); }

void UpgradeSettings::StoreDate(ComponentKind kind, const std::string& text) {
  Write(DateName(kind), text);
}

void UpgradeSettings::StoreLastUpgrade(const std::string& text) { Write("LASTUPDATE", text); }

void UpgradeSettings::ShowLastUpgrade() { page_.oPath[3].SetCaption(Read("LASTUPDATE", "n/a")); }

std::string UpgradeSettings::Read(const std::string& name, const std::string& defaultText) {
  return ReadRegistryString(registry_, Hive::LocalMachine, settingsKey_, name, defaultText);
}

void UpgradeSettings::Write(const std::string& name, const std::string& text) {
  WriteRegistryString(registry_, Hive::LocalMachine, settingsKey_, name, text);
}

}  // namespace tarvo
