// Times what the launcher's watches do while servers are silent, and asks its window meanwhile
// whether it is there:
//
//   probe-watch kills ROUNDS LOG TEXT NAME   each time the log file gets that text, the
//   milliseconds
//                                            until the process of that file name is gone
//   probe-watch successors ROUNDS NAME       ends the process of that name at moments of its own;
//                                            the milliseconds until another one runs
//
// At the end "answer" with the longest time without an answer of the window. "ready" comes first.

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

#include "benches/windows/desktop/asker.h"
#include "benches/windows/desktop/stopwatch.h"
#include "benches/windows/desktop/tail.h"
#include "benches/windows/process_search.h"

namespace tarvo {
namespace {

constexpr double kPatience = 120000;
constexpr double kNever = -1;

template <class Condition>
double Until(double begin, Condition holds) {
  while (!holds()) {
    if (Now() - begin > kPatience) return kNever;
    Sleep(1);
  }
  return Now() - begin;
}

double TimeKill(Tail& log, const std::string& text, const char* name) {
  double begin = 0;
  DWORD frozen = 0;
  const auto killed = [&] {
    const std::string lines = log.More();
    const bool back = lines.rfind("is back!") != std::string::npos;
    // A server that only starts slowly freezes for a moment, and is back.
    if (back) begin = 0;
    if (!back && lines.find(text) != std::string::npos) {
      begin = Now();
      frozen = FindProcess(name);
    }
    return begin != 0 && FindProcess(name) != frozen;
  };
  return Until(Now(), killed) == kNever ? kNever : Now() - begin;
}

double TimeSuccessor(const char* name, DWORD pause) {
  Sleep(pause);
  const DWORD old = FindProcess(name);
  const HANDLE process = OpenProcess(PROCESS_TERMINATE, FALSE, old);
  const double begin = Now();
  const bool ended = old != 0 && TerminateProcess(process, 0) != 0;
  CloseHandle(process);
  return ended ? Until(begin, [&] { return FindProcess(name, old) != 0; }) : kNever;
}

template <class Round>
int Run(int rounds, Round round) {
  const HWND window = FindWindowA("TarvoLauncherMain", nullptr);
  if (window == nullptr) return 1;
  Asker asker(window);
  std::puts("ready");
  for (int i = 0; i < rounds; ++i) {
    const double took = round();
    if (took == kNever) return 1;
    std::printf("%.1f\n", took);
  }
  std::printf("answer %.1f\n", asker.Worst());
  return 0;
}

int WatchKills(int rounds, const char* path, const char* text, const char* name) {
  Tail log(path);
  if (!log.Valid()) return 1;
  return Run(rounds, [&] { return TimeKill(log, text, name); });
}

int EndAndWatch(int rounds, const char* name) {
  std::mt19937 random(GetTickCount());
  return Run(rounds, [&] { return TimeSuccessor(name, 6000 + random() % 10000); });
}

}  // namespace
}  // namespace tarvo

int main(int argc, char** argv) {
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  const std::string command = argc > 2 ? argv[1] : "";
  const int rounds = argc > 2 ? std::atoi(argv[2]) : 0;
  if (command == "kills" && argc == 6) return tarvo::WatchKills(rounds, argv[3], argv[4], argv[5]);
  if (command == "successors" && argc == 4) return tarvo::EndAndWatch(rounds, argv[3]);
  std::fprintf(stderr, "usage: probe-watch kills ROUNDS LOG TEXT NAME | successors ROUNDS NAME\n");
  return 1;
}
