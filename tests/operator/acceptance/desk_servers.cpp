// The servers of the operator's root, and its settings.
#include "tests/operator/acceptance/desk.h"
#include "tests/operator/acceptance/servers.h"

namespace tarvo::acceptance {
namespace {

std::string FileOf(const std::string& role) { return role + "-server.exe"; }

}  // namespace

void Desk::Tell(const std::string& role, UINT command) const {
  Await(seconds(10), "the " + role + " server does not obey",
        [&] { return Count(role) > 0 && TellServer(Process(role), command); });
}

int Desk::Count(const std::string& role) const {
  return static_cast<int>(ProcessesIn(root_.Path(), FileOf(role)).size());
}

void Desk::ExpectCount(const std::string& role, int count) const {
  Holds(seconds(10), [&] { return Count(role) == count; });
  ExpectEqual(std::to_string(Count(role)), std::to_string(count), "processes of " + role);
}

void Desk::ExpectCountOfEach(int count) const {
  for (const char* role : kRoles) ExpectCount(role, count);
}

DWORD Desk::Process(const std::string& role) const {
  const std::vector<DWORD> ids = ProcessesIn(root_.Path(), FileOf(role));
  Expect(!ids.empty(), "no process of " + role);
  return ids.back();
}

void Desk::StartServer(const std::string& role) {
  const OwnProcess started(root_.Path(FileOf(role)), root_.Path());
  Await(seconds(10), "the " + role + " server opens no window",
        [&] { return ServerWindow(started.Id()) != nullptr; });
}

void Desk::ExpectSetting(const std::string& name, const std::string& text) const {
  const auto kept = root_.Kept().Read(name);
  Expect(kept.has_value(), "no setting " + name);
  ExpectEqual(*kept, text, "the setting " + name);
}

void Desk::ExpectNoSetting(const std::string& name) const {
  const auto kept = root_.Kept().Read(name);
  Expect(!kept, "the setting " + name + " is \"" + kept.value_or("") + "\"");
}

void Desk::WriteSettings(
    std::initializer_list<std::pair<const char*, const char*>> settings) const {
  for (const auto& [name, text] : settings) root_.Kept().Write(name, text);
}

void Desk::ChooseAll() const {
  WriteSettings({{"LoginAutoStart", "1"},
                 {"CharAutoStart", "1"},
                 {"MapAutoStart", "1"},
                 {"LoginAutoKillEnabled", "1"},
                 {"CharAutoKillEnabled", "1"},
                 {"MapAutoKillEnabled", "1"}});
}

}  // namespace tarvo::acceptance
