#include "tests/operator/acceptance/desk.h"

#include "tests/operator/actions.h"
#include "tests/operator/boxes.h"

namespace tarvo::acceptance {
namespace {

std::string FolderToStartFrom(const Surroundings& surroundings, const Root& root) {
  if (!surroundings.elsewhere) return root.Path();
  char folder[MAX_PATH] = "";
  GetWindowsDirectoryA(folder, sizeof folder);
  return folder;
}

}  // namespace

Desk::Desk(const Surroundings& surroundings)
    : surroundings_(surroundings), root_(surroundings.elsewhere), choice_{0, root_.Path()} {}

void Desk::LaunchOnly() {
  launcher_.reset();
  launcher_.emplace(root_.Path("tarvo-launcher.exe"), FolderToStartFrom(surroundings_, root_));
}

void Desk::StartLauncher() {
  LaunchOnly();
  Await(seconds(30), "no window comes", [this] {
    if (const HWND box = FindBox(choice_)) {
      throw DidNotHold("a box comes up: " + MessageOf(box));
    }
    const HWND window = FindLauncher(choice_);
    return window && IsWindowVisible(window);
  });
  Window();
}

void Desk::CloseLauncher() {
  WindowCommand(Window(), SC_CLOSE);
  ExpectEqual(std::to_string(AwaitEnd()), "0", "the launcher's exit code");
}

DWORD Desk::AwaitEnd() {
  Expect(launcher_.has_value(), "no launcher was started");
  Await(seconds(30), "the launcher stays", [this] { return launcher_->ExitCode().has_value(); });
  return *launcher_->ExitCode();
}

void Desk::KillLauncher() {
  launcher_->Kill();
  AwaitEnd();
}

FoundControl Desk::Control(const std::string& name, int index) const {
  return NeedControl(Window(), name, index);
}

void Desk::Click(const std::string& name, int index) {
  tarvo::Click(Window(), Control(name, index));
}

void Desk::Check(const std::string& name, int index) {
  tarvo::Check(Window(), Control(name, index), true);
}

void Desk::Uncheck(const std::string& name, int index) {
  tarvo::Check(Window(), Control(name, index), false);
}

void Desk::Set(const std::string& name, int index, const std::string& text) {
  SetTo(Window(), Control(name, index), text);
}

void Desk::Type(const std::string& name, int index, const std::string& keys) {
  TypeKeys(Window(), Control(name, index), keys);
}

void Desk::Choose(const std::string& name, int index, const std::string& entry) {
  Select(Window(), Control(name, index), entry);
}

void Desk::Scroll(const std::string& name, int index, int value) {
  tarvo::Scroll(Window(), Control(name, index), value);
}

void Desk::Page(int number) { GoToPage(Window(), number); }

void Desk::Minimize() { WindowCommand(Window(), SC_MINIMIZE); }

bool UnderWine() {
  return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

}  // namespace tarvo::acceptance
