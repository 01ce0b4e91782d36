// The program entry: joins the real machine, the main window object and its native window; or
// answers a command, without a window.

#include "app/check_up_command.h"
#include "app/principal.h"
#include "app/version.h"
#include "form/windows/native_window.h"
#include "outside/command_run.h"
#include "platform/windows/clock_windows.h"
#include "platform/windows/code_page_windows.h"
#include "platform/windows/console_windows.h"
#include "platform/windows/fault_guard.h"
#include "platform/windows/launcher_call_windows.h"
#include "platform/windows/system_libraries.h"
#include "platform/windows/windows_machine.h"

namespace {

int AnswerCommand(const tarvo::CommandLine& line) {
  tarvo::WindowsConsole console;
  tarvo::WindowsLauncherCall launcher;
  tarvo::WindowsTickClock clock;
  tarvo::WindowsCodePage codePage;
  const std::string folder = tarvo::RealFolderOf(tarvo::OwnExecutablePath());
  return tarvo::RunCommand(
      line, {console, launcher, clock, tarvo::InstanceNameOf(folder, codePage), tarvo::kVersion});
}

int CheckRoot(const tarvo::Machine& machine, bool json) {
  const tarvo::CheckUpAnswer answer = tarvo::CheckFromOutside(machine, json);
  tarvo::WindowsConsole console;
  if (json) {
    console.PrintUtf8(tarvo::OutputStream::Output, answer.text);
  } else {
    console.PrintText(tarvo::OutputStream::Output, answer.text);
  }
  return answer.exitCode;
}

}  // namespace

int main(int argc, char** argv) {
  tarvo::WatchForFaults(tarvo::kVersion);
  const tarvo::CommandLine line = tarvo::ReadCommandLine({argv + 1, argv + argc});
  const bool answers = tarvo::IsAnsweredHere(line);
  tarvo::LoadFromSystemFolderOnly(!answers);
  if (answers) return AnswerCommand(line);
  tarvo::WindowsMachine machine;
  if (line.command) return CheckRoot(machine.Ports(), line.command->json);
  tarvo::Principal principal(machine.Ports());
  tarvo::NativeWindow window(principal.TheForm(), principal.TheTimers(), principal.Dispatch());
  machine.SetOwner(window.Handle());
  principal.Start(window.Handle());
  return window.Run();
}
