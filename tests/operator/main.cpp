#include <windows.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <string>
#include <vector>

#include "actions.h"
#include "boxes.h"
#include "captions.h"
#include "clipboard.h"
#include "faulty/fault_door.h"
#include "file_dialog.h"
#include "layout.h"
#include "manual.h"
#include "report.h"

namespace tarvo {
namespace {

/// The command line, taken apart.
struct Order {
  LauncherChoice choice;
  DWORD boxPatience = 5000;
  std::string verb;
  std::vector<std::string> words;
};

int ToNumber(const std::string& text) {
  int number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stop != end) throw OperatorError(text + " is no number");
  return number;
}

DWORD Milliseconds(const std::string& seconds) {
  char* end = nullptr;
  const double value = std::strtod(seconds.c_str(), &end);
  if (end == seconds.c_str() || *end != '\0' || value < 0 || value > 1e6) {
    throw OperatorError(seconds + " is no number of seconds");
  }
  return static_cast<DWORD>(value * 1000);
}

/// A control named by the first words, with `behind` words after it; the index may be left out.
struct Named {
  std::string name;
  int index;
  std::vector<std::string> rest;
};

Named TakeName(const Order& order, std::size_t behind) {
  const std::vector<std::string>& words = order.words;
  if (words.size() != behind + 1 && words.size() != behind + 2) {
    throw OperatorError("wrong number of words after " + order.verb + ": see operator help");
  }
  const bool indexed = words.size() == behind + 2;
  return {words[0],
          indexed ? ToNumber(words[1]) : -1,
          {words.begin() + (indexed ? 2 : 1), words.end()}};
}

const std::string& OnlyWord(const Order& order) {
  if (order.words.size() == 1) return order.words[0];
  throw OperatorError("one word is wanted after " + order.verb + ": see operator help");
}

void WaitForWindow(const LauncherChoice& choice, DWORD patience) {
  const DWORD start = GetTickCount();
  for (;;) {
    const HWND launcher = FindLauncher(choice);
    if (launcher && IsWindowVisible(launcher)) {
      NeedLauncher(choice);
      return;
    }
    if (GetTickCount() - start >= patience) throw OperatorError("no launcher window is to be seen");
    Sleep(50);
  }
}

void WaitUntilGone(const LauncherChoice& choice, DWORD patience) {
  const HWND launcher = FindLauncher(choice);
  if (!launcher) return;
  const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, ProcessOf(launcher));
  if (!process) return;
  const DWORD result = WaitForSingleObject(process, patience);
  CloseHandle(process);
  if (result != WAIT_OBJECT_0) throw OperatorError("the launcher is still running");
}

void AnswerBox(const Order& order) {
  const HWND box = WaitForBox(order.choice, order.boxPatience);
  std::fputs(WordsOf(box).c_str(), stdout);
  PressInBox(box, OnlyWord(order));
}

void AnswerDialog(const Order& order) {
  const std::string path = order.verb == "choose-file" ? OnlyWord(order) : std::string();
  const HWND dialog = WaitForFileDialog(order.choice, order.boxPatience);
  std::printf("name: %s\n", NameIn(dialog).c_str());
  AnswerFileDialog(dialog, path);
}

/// Makes the launcher's faulty build fail; any other build takes no notice.
void Fail(HWND launcher, const std::string& fault) {
  const auto found = std::find(std::begin(kFaults), std::end(kFaults), fault);
  if (found == std::end(kFaults)) throw OperatorError("no such fault: " + fault);
  PostMessageA(launcher, RegisterWindowMessageA(kFaultMessage),
               static_cast<WPARAM>(found - std::begin(kFaults)), 0);
}

void ShowBox(const Order& order) {
  const HWND box = FindBox(order.choice);
  if (!box) throw OperatorError("no message box is up");
  std::fputs(WordsOf(box).c_str(), stdout);
}

void ShowState(const Order& order) {
  const HWND launcher = NeedLauncher(order.choice);
  if (order.words.empty()) {
    PrintState(launcher);
  } else if (order.words[0] == "window") {
    PrintWindowState(launcher);
  } else {
    const Named named = TakeName(order, 0);
    PrintControlState(launcher, named.name, named.index);
  }
}

void PrintLines(const std::vector<std::string>& lines) {
  for (const std::string& line : lines) std::printf("%s\n", line.c_str());
}

void PrintItems(const FoundControl& list) {
  const ControlType type = list.entry->type;
  if (type != ControlType::List && type != ControlType::ListBox) {
    throw OperatorError(NameOf(list) + " is no list");
  }
  for (LRESULT i = 0; i < EntryCount(list); ++i) std::printf("%s\n", EntryOf(list, i).c_str());
}

bool RunOnControl(const Order& order) {
  const std::string& verb = order.verb;
  const bool onText =
      verb == "set" || verb == "select" || verb == "drop" || verb == "type" || verb == "scroll";
  if (!onText && verb != "click" && verb != "check" && verb != "uncheck" && verb != "text" &&
      verb != "tooltip" && verb != "items") {
    return false;
  }
  const Named named = TakeName(order, onText ? 1 : 0);
  const HWND launcher = NeedLauncher(order.choice);
  const FoundControl control = NeedControl(launcher, named.name, named.index);
  if (verb == "click") Click(launcher, control);
  if (verb == "set") SetTo(launcher, control, named.rest[0]);
  if (verb == "type") TypeKeys(launcher, control, named.rest[0]);
  if (verb == "scroll") Scroll(launcher, control, ToNumber(named.rest[0]));
  if (verb == "items") PrintItems(control);
  if (verb == "drop") DropFile(launcher, control, named.rest[0]);
  if (verb == "select") Select(launcher, control, named.rest[0]);
  if (verb == "check" || verb == "uncheck") Check(launcher, control, verb == "check");
  if (verb == "text") std::printf("%s\n", ReadText(control).c_str());
  if (verb == "tooltip") std::printf("%s\n", ReadToolTip(launcher, control).c_str());
  return true;
}

bool RunWait(const Order& order) {
  if (order.verb == "wait-text") {
    const Named named = TakeName(order, 2);
    WaitForText(order.choice, named.name, named.index, named.rest[0], Milliseconds(named.rest[1]));
  } else if (order.verb == "follow") {
    const Named named = TakeName(order, 1);
    Follow(order.choice, named.name, named.index, Milliseconds(named.rest[0]));
  } else if (order.verb == "wait-window") {
    WaitForWindow(order.choice, Milliseconds(OnlyWord(order)));
  } else if (order.verb == "choose-file" || order.verb == "cancel-file") {
    AnswerDialog(order);
  } else if (order.verb == "wait-gone") {
    WaitUntilGone(order.choice, Milliseconds(OnlyWord(order)));
  } else {
    return false;
  }
  return true;
}

bool RunOnWindow(const Order& order) {
  const std::string& verb = order.verb;
  if (verb == "state") {
    ShowState(order);
  } else if (verb == "clipboard") {
    std::printf("%s\n", ReadClipboard().c_str());
  } else if (verb == "captions") {
    PrintLines(CaptionsOf(NeedLauncher(order.choice)));
  } else if (verb == "layout") {
    const std::vector<std::string> faults = LayoutFaults(NeedLauncher(order.choice));
    PrintLines(faults);
    if (!faults.empty()) throw OperatorError("the layout has faults");
  } else if (verb == "repaint") {
    RedrawWindow(NeedLauncher(order.choice), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW);
  } else if (verb == "page") {
    GoToPage(NeedLauncher(order.choice), ToNumber(OnlyWord(order)));
  } else if (verb == "close") {
    WindowCommand(NeedLauncher(order.choice), SC_CLOSE);
  } else if (verb == "minimize") {
    WindowCommand(NeedLauncher(order.choice), SC_MINIMIZE);
  } else if (verb == "maximize") {
    WindowCommand(NeedLauncher(order.choice), SC_MAXIMIZE);
  } else if (verb == "restore") {
    WindowCommand(NeedLauncher(order.choice), SC_RESTORE);
  } else if (verb == "log-off") {
    LogOff(NeedLauncher(order.choice), OnlyWord(order));
  } else if (verb == "answer") {
    AnswerBox(order);
  } else if (verb == "box") {
    ShowBox(order);
  } else if (verb == "fault") {
    Fail(NeedLauncher(order.choice), OnlyWord(order));
  } else {
    return false;
  }
  return true;
}

Order Parse(int count, char** words) {
  Order order;
  for (int i = 1; i < count; ++i) {
    const std::string word = words[i];
    const bool option = word == "--pid" || word == "--root" || word == "--wait";
    if (!option) {
      if (order.verb.empty()) {
        order.verb = word;
      } else {
        order.words.push_back(word);
      }
      continue;
    }
    if (++i == count) throw OperatorError(word + " wants a value");
    if (word == "--pid") order.choice.pid = static_cast<DWORD>(ToNumber(words[i]));
    if (word == "--root") order.choice.root = words[i];
    if (word == "--wait") order.boxPatience = Milliseconds(words[i]);
  }
  return order;
}

void Run(const Order& order) {
  if (order.verb.empty() || order.verb == "help") {
    std::fputs(kManual, stdout);
  } else if (!RunOnControl(order) && !RunOnWindow(order) && !RunWait(order)) {
    throw OperatorError("what is " + order.verb + "? See operator help");
  }
}

}  // namespace
}  // namespace tarvo

int main(int count, char** words) {
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  try {
    tarvo::Run(tarvo::Parse(count, words));
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "operator: %s\n", error.what());
    return 1;
  }
}
