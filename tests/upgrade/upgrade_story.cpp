#include "tests/upgrade/upgrade_story.h"

#include <sstream>

namespace tarvo {
namespace {

constexpr std::int64_t kFirstOfJanuary = 1767225600;  // 2026, universal time.
constexpr std::int64_t kDay = 86400;

}  // namespace

UpgradeStory::UpgradeStory() {
  for (ComponentKind kind : kComponents) {
    const auto i = static_cast<std::int64_t>(IndexOf(kind));
    machine.files.Put(Target(kind), Old(kind));
    machine.copies.SetDate(Target(kind), kFirstOfJanuary - 100 * kDay + i);
    machine.files.Put(New(kind), std::string("new ") + NameOf(kind));
    machine.copies.SetDate(New(kind), kFirstOfJanuary + i * kDay);
    machine.SetSetting(std::string(NameOf(kind)) + "From", New(kind));
  }
}

const char* UpgradeStory::Old(ComponentKind kind) {
  const char* const texts[] = {"old Login", "old Char", "old Map"};
  return texts[IndexOf(kind)];
}

std::string UpgradeStory::New(ComponentKind kind) {
  return std::string("C:\\new\\") + kServers[IndexOf(kind)];
}

std::string UpgradeStory::Target(ComponentKind kind) {
  return std::string("C:\\srv\\") + kServers[IndexOf(kind)];
}

void UpgradeStory::StartReady() {
  StartLauncher();
  launcher->ForgetLog();
}

void UpgradeStory::StartRunning() { StartWithAllServers(); }

void UpgradeStory::SetTrigger(int mode) { machine.SetSetting("UpdateMode", std::to_string(mode)); }

void UpgradeStory::TypePath(ComponentKind kind, const std::string& path) {
  Do([&] { Page().nPath[kind].Type(path); });
}

void UpgradeStory::ClickOption(std::size_t index, bool checked) {
  if (Page().chk_Opts[index].Checked() != checked) Do([&] { Page().chk_Opts[index].Click(); });
}

void UpgradeStory::PressUpgrade() {
  Do([&] { Page().UpdateNow.Click(); });
}

void UpgradeStory::BuildAgain(ComponentKind kind) {
  machine.copies.SetDate(New(kind), machine.copies.DateOf(New(kind)) + 10 * kDay);
  machine.files.Put(New(kind), machine.files.TextOf(New(kind)) + "+");
}

std::string UpgradeStory::NewLines() {
  std::istringstream lines(launcher->NewLog());
  std::string texts;
  for (std::string line; std::getline(lines, line);) texts += line.substr(9) + "\n";
  return texts;
}

std::string UpgradeStory::Lying() {
  std::string text;
  for (const char* folder : {"C:\\srv", "C:\\srv\\LBackup"}) {
    for (const char* ending : {"-server.exe", ".tarvo-copy"}) {
      for (const std::string& name : machine.files.FilesEndingWith(folder, ending)) {
        const std::string path = std::string(folder) + "\\" + name;
        text += path.substr(7) + " = " + machine.files.TextOf(path) + "\n";
      }
    }
  }
  return text;
}

std::string UpgradeStory::Dates() {
  return machine.Setting("LDATE") + "|" + machine.Setting("CDATE") + "|" +
         machine.Setting("MDATE") + "|" + machine.Setting("LASTUPDATE");
}

std::string QuietUpgradeLines(const std::string& stamp) {
  std::string lines;
  for (const char* name : kServers) {
    lines += std::string("3 Saving ") + name + " as \\LBackup\\" + stamp + "_" + name + "\n";
  }
  return lines +
         "3 Upgrading Login Server...\n"
         "3 Upgrading Char Server...\n"
         "3 Upgrading Map Server...\n"
         "3 Upgrade complete!\n";
}

}  // namespace tarvo
