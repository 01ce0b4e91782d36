// Many commands and many foreign messages to one launcher.
//
//   command-storm LAUNCHER.EXE asks COUNT      asks for its state COUNT times; prints "slowest N",
//   the longest
//                                              answer in milliseconds
//   command-storm LAUNCHER.EXE garbage COUNT   sends messages that look like commands and are none;
//   prints how
//                                              many were answered, which is none, and asks for the
//                                              state once
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

#include "core/server_root.h"
#include "outside/command_record.h"
#include "platform/windows/code_page_windows.h"
#include "platform/windows/instance_lock_windows.h"
#include "platform/windows/launcher_call_windows.h"
#include "platform/windows/windows_machine.h"

namespace tarvo {
namespace {

constexpr DWORD kPatience = 30000;

bool AsksOnce(const std::string& name) {
  Command command;
  command.verb = CommandVerb::State;
  command.form = StateForm::Json;
  const CallResult result = WindowsLauncherCall().Call(name, RecordOf(command), kPatience);
  const auto answer = AnswerOf(result.answer);
  return result.end == CallEnd::Answered && answer && answer->exitCode == kCommandDone;
}

int Ask(const std::string& name, int count) {
  DWORD slowest = 0;
  for (int i = 0; i < count; ++i) {
    const DWORD begun = GetTickCount();
    if (!AsksOnce(name)) return 1;
    slowest = std::max(slowest, GetTickCount() - begun);
  }
  std::printf("slowest %lu\n", slowest);
  return 0;
}

/// Whether the launcher took the message in.
bool SendForeign(HWND window, ULONG_PTR mark, std::string bytes) {
  COPYDATASTRUCT data{mark, static_cast<DWORD>(bytes.size()), bytes.data()};
  DWORD_PTR taken = FALSE;
  SendMessageTimeoutA(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data), SMTO_NORMAL,
                      kPatience, &taken);
  return taken != FALSE;
}

/// A whole message but for one thing: a byte of it, its length, its mark, or nobody's address.
std::string Garbage(std::mt19937& random, int kind) {
  std::string message = "0123456789abcdef0123456789abcdefTarvoCommand 1 --stop all";
  switch (kind) {
    case 0:
      message[random() % message.size()] = static_cast<char>(random());
      break;
    case 1:
      message.resize(random() % message.size());
      break;
    case 2:
      message.append(random() % 5000, static_cast<char>(random()));
      break;
    default:
      break;
  }
  return message;
}

int Trouble(const std::string& name, int count) {
  const HWND window = PublishedWindow(name);
  std::mt19937 random(1);
  int taken = 0;
  for (int i = 0; i < count; ++i) {
    const ULONG_PTR mark = i % 5 == 4 ? random() : kCallMark;
    taken += SendForeign(window, mark, Garbage(random, i % 5)) ? 1 : 0;
    PostMessageA(window, WM_APP + 1, random(), static_cast<LPARAM>(random()));
  }
  std::printf("sent %d taken %d\n", count, taken);
  return AsksOnce(name) ? 0 : 1;
}

}  // namespace
}  // namespace tarvo

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  tarvo::WindowsCodePage codePage;
  const std::string name =
      tarvo::InstanceNameOf(tarvo::RealFolderOf(tarvo::WideTextOf(argv[1])), codePage);
  const int count = std::atoi(argv[3]);
  return std::string(argv[2]) == "asks" ? tarvo::Ask(name, count) : tarvo::Trouble(name, count);
}
