#include "launcher.h"

#include <vector>

namespace tarvo {
namespace {

std::string FolderOf(const std::string& path) {
  const std::size_t end = path.find_last_of("\\/");
  return end == std::string::npos ? std::string() : path.substr(0, end);
}

std::string ImageOf(DWORD pid) {
  const HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, pid);
  if (!process) return {};
  char path[MAX_PATH * 4] = "";
  DWORD size = sizeof path;
  if (!QueryFullProcessImageNameA(process, 0, path, &size)) path[0] = '\0';
  CloseHandle(process);
  return path;
}

std::string FullPath(const std::string& path) {
  char full[MAX_PATH * 4] = "";
  GetFullPathNameA(path.c_str(), sizeof full, full, nullptr);
  std::string text = full;
  while (!text.empty() && (text.back() == '\\' || text.back() == '/')) text.pop_back();
  return text;
}

BOOL CALLBACK TakeEach(HWND window, LPARAM windows) {
  reinterpret_cast<std::map<int, HWND>*>(windows)->emplace(GetDlgCtrlID(window), window);
  return TRUE;
}

std::string Range(const ControlId& entry) { return "0 to " + std::to_string(entry.count - 1); }

int CheckedIndex(const ControlId& entry, int index) {
  const std::string name(entry.name);
  if (index < 0 && entry.count == 1) return 0;
  if (index < 0) throw OperatorError(name + " needs an index: " + Range(entry));
  if (index < entry.count) return index;
  throw OperatorError(name + " has no index " + std::to_string(index) + ": " + Range(entry));
}

/// The check-up's window, which is made when it is opened first.
HWND CheckUpWindowOf(HWND launcher) {
  HWND window = nullptr;
  while ((window = FindWindowExA(nullptr, window, kCheckUpWindowClass, nullptr)) != nullptr) {
    if (GetWindow(window, GW_OWNER) == launcher) return window;
  }
  return nullptr;
}

bool HasAllControls(HWND launcher) {
  return FindControl(launcher, kControlIds.back(), kControlIds.back().count - 1).has_value();
}

/// The pages that are not shown at first are made with the first messages.
void AwaitControls(HWND launcher) {
  const ULONGLONG end = GetTickCount64() + kPatience;
  while (!HasAllControls(launcher) && IsWindow(launcher) && GetTickCount64() < end) Sleep(5);
}

void NeedAnswer(HWND window, LRESULT sent) {
  if (sent) return;
  throw OperatorError(IsWindow(window) ? "the launcher does not answer" : "the launcher is gone");
}

}  // namespace

bool LauncherChoice::Fits(DWORD candidate) const {
  if (pid != 0 && pid != candidate) return false;
  return root.empty() ||
         lstrcmpiA(FolderOf(ImageOf(candidate)).c_str(), FullPath(root).c_str()) == 0;
}

HWND FindLauncher(const LauncherChoice& choice) {
  std::vector<HWND> fitting;
  HWND window = nullptr;
  while ((window = FindWindowExA(nullptr, window, kMainWindowClass, nullptr)) != nullptr) {
    if (choice.Fits(ProcessOf(window))) fitting.push_back(window);
  }
  if (fitting.empty()) return nullptr;
  if (fitting.size() == 1) return fitting.front();
  std::string text = "several launchers run, say --pid or --root:";
  for (HWND one : fitting) text += " " + std::to_string(ProcessOf(one));
  throw OperatorError(text);
}

HWND NeedLauncher(const LauncherChoice& choice) {
  const HWND window = FindLauncher(choice);
  if (!window) throw OperatorError("no launcher is running");
  AwaitControls(window);
  return window;
}

DWORD ProcessOf(HWND window) {
  DWORD pid = 0;
  GetWindowThreadProcessId(window, &pid);
  return pid;
}

std::string ClassOf(HWND window) {
  char name[64] = "";
  GetClassNameA(window, name, sizeof name);
  return name;
}

std::map<int, HWND> ControlWindows(HWND launcher) {
  std::map<int, HWND> windows;
  EnumChildWindows(launcher, TakeEach, reinterpret_cast<LPARAM>(&windows));
  const HWND beside = CheckUpWindowOf(launcher);
  if (beside) EnumChildWindows(beside, TakeEach, reinterpret_cast<LPARAM>(&windows));
  return windows;
}

std::optional<FoundControl> FindControl(HWND launcher, const ControlId& entry, int index) {
  // Whoever waits asks for the same one again and again, and a search asks the system for each
  // window's number.
  static std::map<int, HWND> known;
  const int id = entry.firstId + index;
  auto found = known.find(id);
  if (found == known.end() || !IsChild(launcher, found->second) ||
      GetDlgCtrlID(found->second) != id) {
    known = ControlWindows(launcher);
    found = known.find(id);
  }
  if (found == known.end()) return std::nullopt;
  return FoundControl{&entry, index, found->second};
}

FoundControl NeedControl(HWND launcher, const std::string& name, int index) {
  const ControlId* entry = FindControlId(name);
  if (!entry) throw OperatorError("no control has the name " + name);
  const int element = CheckedIndex(*entry, index);
  AwaitControls(launcher);
  const auto control = FindControl(launcher, *entry, element);
  if (!control) throw OperatorError("the window has no " + NameOf({entry, element, nullptr}));
  return *control;
}

std::string NameOf(const FoundControl& control) {
  const std::string name(control.entry->name);
  return control.entry->count == 1 ? name : name + " " + std::to_string(control.index);
}

LRESULT Send(HWND window, UINT message, WPARAM w, LPARAM l) {
  DWORD_PTR answer = 0;
  NeedAnswer(window, SendMessageTimeoutA(window, message, w, l, SMTO_NORMAL, kPatience, &answer));
  return static_cast<LRESULT>(answer);
}

LRESULT SendWide(HWND window, UINT message, WPARAM w, LPARAM l) {
  DWORD_PTR answer = 0;
  NeedAnswer(window, SendMessageTimeoutW(window, message, w, l, SMTO_NORMAL, kPatience, &answer));
  return static_cast<LRESULT>(answer);
}

void SendAndSettle(HWND launcher, HWND window, UINT message, WPARAM w, LPARAM l) {
  SendNotifyMessageA(window, message, w, l);
  // Sent messages are taken in their order, also under a message box: when this empty one is
  // answered, the one before is through or waits in a box.
  DWORD_PTR answer = 0;
  if (!SendMessageTimeoutA(launcher, WM_NULL, 0, 0, SMTO_NORMAL, kPatience, &answer) &&
      IsWindow(launcher)) {
    throw OperatorError("the launcher does not answer");
  }
}

std::string TextOf(HWND window) {
  const LRESULT length = Send(window, WM_GETTEXTLENGTH);
  // The length is that of a moment ago, and of some windows only an estimate.
  std::string text(static_cast<std::size_t>(length) * 2 + 1024, '\0');
  const LRESULT got = Send(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(got));
  return text;
}

}  // namespace tarvo
