#include "upgrade/upgrade_settings.h"

#include "core/component.h"
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
  for (ComponentKind kind : kComponents) {
    controls_.newFiles[kind].SetText(store_.Text(FromName(kind)));
  }
  for (ComponentKind kind : kComponents) ShowTarget(kind);
  LoadMode();
  ShowLastUpgrade();
}

void UpgradeSettings::LoadMode() {
  const std::int32_t mode = store_.Integer("UpdateMode", "0");
  if (mode < 0 || mode >= static_cast<std::int32_t>(OptionGroup::Size())) return;
  controls_.trigger[static_cast<std::size_t>(mode)].Select();
}

void UpgradeSettings::cmd_nBrowse_Click(ComponentKind kind) {
  const std::string chosen =
      dialog_.AskForFile({"Executables (*.exe)", "*.exe", controls_.newFiles[kind].Text()});
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
  controls_.newFiles[kind].SetText(path);
  store_.Write(FromName(kind), path);
}

void UpgradeSettings::optMode_Click(std::size_t index) {
  store_.Write("UpdateMode", std::to_string(index));
}

std::string UpgradeSettings::TargetPath(ComponentKind kind) const {
  return appFolder_ + "\\" + controls_.executables[kind].Text();
}

void UpgradeSettings::ShowTarget(ComponentKind kind) {
  controls_.targets[IndexOf(kind)].SetCaption(TargetPath(kind));
}

std::string UpgradeSettings::StoredDate(ComponentKind kind) { return store_.Text(DateName(kind)); }

void UpgradeSettings::StoreDate(ComponentKind kind, const std::string& text) {
  store_.Write(DateName(kind), text);
}

void UpgradeSettings::StoreLastUpgrade(const std::string& text) {
  store_.Write("LASTUPDATE", text);
}

void UpgradeSettings::ShowLastUpgrade() {
  controls_.lastUpgrade.SetCaption(store_.Text("LASTUPDATE", "n/a"));
}

}  // namespace tarvo
