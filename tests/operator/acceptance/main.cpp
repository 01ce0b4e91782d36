// Plays the operator's stories on the machine at hand, with the launcher and the sample servers
// that lie beside it:
//
//   tarvo-acceptance                     all of them
//   tarvo-acceptance --story NAME        one; repeated, several
//   tarvo-acceptance --list              their names
//     --elsewhere                        the launcher is started from Windows' own folder
//     --silent ADDRESS                   an address that answers nothing
//
// The exit code is the number of stories that did not hold; 100 for words that it does not know.

// Before windows.h, which brings an older one.
#include <winsock2.h>

#include <cstring>
#include <vector>

#include "tests/operator/acceptance/files.h"
#include "tests/operator/acceptance/machine.h"
#include "tests/operator/acceptance/patience.h"
#include "tests/operator/acceptance/runner.h"

namespace tarvo::acceptance {
namespace {

constexpr int kWrongWords = 100;

struct Wish {
  std::vector<const Story*> stories;
  Surroundings surroundings;
  bool list = false;
};

const Story& NeedStory(const std::string& name) {
  for (const Story& story : Stories()) {
    if (name == story.name) return story;
  }
  throw std::invalid_argument("there is no story " + name);
}

Wish Parse(int count, char** words) {
  Wish wish;
  for (int i = 1; i < count; ++i) {
    const std::string word = words[i];
    const bool hasValue = word == "--story" || word == "--silent";
    if (hasValue && ++i == count) throw std::invalid_argument(word + " wants a value");
    if (word == "--story") {
      wish.stories.push_back(&NeedStory(words[i]));
    } else if (word == "--silent") {
      wish.surroundings.silentAddress = words[i];
    } else if (word == "--elsewhere") {
      wish.surroundings.elsewhere = true;
    } else if (word == "--list") {
      wish.list = true;
    } else {
      throw std::invalid_argument("what is " + word + "?");
    }
  }
  return wish;
}

void PrintList() {
  for (const Story& story : Stories()) std::printf("%s: %s\n", story.name, story.tells);
}

/// A console that comes with the double click goes with the program: what is told on it is to be
/// read.
void LetBeRead(const Report& report) {
  DWORD processes[2];
  if (GetConsoleProcessList(processes, 2) != 1) return;
  std::printf("\nThe report is in %s. Press Enter.\n", report.Path().c_str());
  const HANDLE keys = GetStdHandle(STD_INPUT_HANDLE);
  FlushConsoleInputBuffer(keys);
  INPUT_RECORD record{};
  DWORD read = 0;
  while (WaitForSingleObject(keys, static_cast<DWORD>(TimeLeft().count())) == WAIT_OBJECT_0 &&
         ReadConsoleInputA(keys, &record, 1, &read)) {
    const KEY_EVENT_RECORD& key = record.Event.KeyEvent;
    if (record.EventType == KEY_EVENT && key.bKeyDown && key.wVirtualKeyCode == VK_RETURN) return;
  }
}

/// What has to lie beside the program.
void NeedFiles() {
  for (const char* name : {"tarvo-launcher.exe", "login-server.exe", "char-server.exe",
                           "map-server.exe", "console-server.exe"}) {
    if (!Exists(Beside(name))) throw std::runtime_error("there is no " + Beside(name));
  }
}

int PlayAll(const Wish& wish) {
  WSADATA data{};
  WSAStartup(MAKEWORD(2, 2), &data);
  NeedFiles();
  Report report;
  for (const std::string& line : DescribeMachine()) report.Say(line);
  Runner runner(report, wish.surroundings);
  if (wish.stories.empty()) {
    for (const Story& story : Stories()) runner.Play(story);
  } else {
    for (const Story* story : wish.stories) runner.Play(*story);
  }
  const int failed = runner.Finish();
  LetBeRead(report);
  return failed;
}

}  // namespace
}  // namespace tarvo::acceptance

int main(int count, char** words) {
  using namespace tarvo::acceptance;
  try {
    const Wish wish = Parse(count, words);
    if (!wish.list) return PlayAll(wish);
    PrintList();
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tarvo-acceptance: %s\n", error.what());
    return kWrongWords;
  }
}
