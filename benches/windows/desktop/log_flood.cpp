// Floods the log of the launcher's window and prints, one a line, a name and a value:
//
//   log-flood LINES BURST      BURST lines in each event, events as fast as the timers allow
//
//   first, last                milliseconds of the program's processor time that a line takes until
//                              it is drawn, of the first and of the last 1000
//   lines                      how many are in view at the end
//   source                     the longest source of the view, in characters
//   differs                    characters that the window shows other than the view has
//   moved                      pixels that a line that is read, and selected, moves while 150 come;
//                              10000 when another text is selected then
//   answer, idle               the longest that the window took to answer another thread, and an
//                              idle window at the same time, ms

#include <windows.h>
// After windows.h, which it needs.
#include <richedit.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "benches/windows/desktop/asker.h"
#include "core/status_log.h"
#include "form/control_ids.h"
#include "form/log_screen.h"
#include "form/windows/native_window.h"
#include "platform/windows/clock_windows.h"
#include "platform/windows/files_windows.h"
#include "toolkit/windows/widget.h"

namespace tarvo {
namespace {

constexpr std::size_t kSample = 1000;

/// The launcher's window with its log, and nothing else behind it.
class Flood {
 public:
  Flood(std::size_t lines, std::size_t burst)
      : lines_(lines),
        burst_(burst),
        form_(timers_),
        file_(form_.servers.WLog, form_.servers.LogH, files_, clock_, "."),
        log_(clock_),
        window_(form_, timers_, dispatch_),
        source_(timers_, "Flood", 10) {
    log_.listeners = {[this](const LogLine& line) { ShowLine(form_.status.RTLog, line); },
                      [this](const LogLine& line) { file_.Take(line); }};
    source_.onTick = [this] { Burst(); };
  }

  int Run() {
    form_.frame.SSTab1.SetPage(0);
    form_.frame.window.SetVisible(true);
    // What the start takes is another figure.
    RedrawWindow(reinterpret_cast<HWND>(window_.Handle()), nullptr, nullptr,
                 RDW_UPDATENOW | RDW_ALLCHILDREN);
    source_.SetEnabled(true);
    const IdleWindow idle;
    Asker asker(reinterpret_cast<HWND>(window_.Handle()));
    Asker idleAsker(idle.Window());
    window_.Run();
    Print("answer", asker.Worst());
    Print("idle", idleAsker.Worst());
    ReadOn(LogWindow());
    return 0;
  }

 private:
  static void Print(const char* name, double value) { std::printf("%s %.3f\n", name, value); }

  void Burst() {
    const HWND log = LogWindow();
    if (written_ == 0) began_ = Spent();
    if (written_ == kSample) first_ = Spent() - began_;
    if (written_ == lines_ - kSample) began_ = Spent();
    for (std::size_t i = 0; i < burst_; ++i) Line();
    SendMessageA(log, WM_NULL, 0, 0);
    UpdateWindow(log);
    if (written_ < lines_) return;
    last_ = Spent() - began_;
    Report();
    form_.frame.window.End(0);
  }

  /// This thread's processor time, in milliseconds; other programs' turns do not count.
  static double Spent() {
    FILETIME begun, ended, kernel, user;
    GetThreadTimes(GetCurrentThread(), &begun, &ended, &kernel, &user);
    constexpr double kInMillisecond = 10000;
    return (Whole(kernel) + Whole(user)) / kInMillisecond;
  }

  static double Whole(const FILETIME& time) {
    return static_cast<double>(time.dwHighDateTime) * 4294967296.0 + time.dwLowDateTime;
  }

  /// Texts and levels of the program's own kinds.
  void Line() {
    static const char* const kTexts[] = {"Map Server crashed, restarting...",
                                         "Starting Map Server...", "Listening Map Server",
                                         "Map Server running with Normal priority."};
    static constexpr LogLevel kLevels[] = {kAlert, kNotice, kInfo, kExtra};
    const std::size_t kind = ++written_ % std::size(kTexts);
    log_.LogStatus(kTexts[kind] + std::to_string(written_), kLevels[kind]);
    longest_ = std::max(longest_, form_.status.RTLog.SourceLength());
  }

  void Report() const {
    const std::string kept = form_.status.RTLog.Text();
    const std::string shown = TextOf(LogWindow());
    Print("first", first_ / kSample);
    Print("last", last_ / kSample);
    Print("lines", static_cast<double>(std::count(shown.begin(), shown.end(), '\n')));
    Print("source", static_cast<double>(longest_));
    const std::size_t common = std::min(kept.size(), shown.size());
    std::size_t differs = std::max(kept.size(), shown.size()) - common;
    for (std::size_t i = 0; i < common; ++i) differs += kept[i] != shown[i] ? 1U : 0U;
    Print("differs", static_cast<double>(differs));
  }

  /// Someone reads in the middle while lines come, and others go.
  void ReadOn(HWND log) {
    constexpr LONG kLength = 20;
    const auto middle = static_cast<LONG>(TextOf(log).size() / 2);
    CHARRANGE selection{middle, middle + kLength};
    SendMessageA(log, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&selection));
    SendMessageA(log, EM_SCROLLCARET, 0, 0);
    const std::string selected = SelectedIn(log);
    const LONG height = HeightOfSelection(log);
    for (int i = 0; i < 50; ++i) Line();
    for (int i = 0; i < 100; ++i) {
      Line();
      SendMessageA(log, WM_NULL, 0, 0);
    }
    const bool same = selected.size() == kLength && SelectedIn(log) == selected;
    Print("moved", same ? std::abs(HeightOfSelection(log) - height) : 10000);
  }

  static std::string SelectedIn(HWND log) {
    char text[64] = "";
    SendMessageA(log, EM_GETSELTEXT, 0, reinterpret_cast<LPARAM>(text));
    return text;
  }

  static LONG HeightOfSelection(HWND log) {
    CHARRANGE selection{};
    POINTL place{};
    SendMessageA(log, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&selection));
    SendMessageA(log, EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&place), selection.cpMin);
    return place.y;
  }

  struct Search {
    int id;
    HWND found;
  };

  static BOOL CALLBACK TakeIfIt(HWND window, LPARAM argument) {
    auto& wanted = *reinterpret_cast<Search*>(argument);
    if (GetDlgCtrlID(window) == wanted.id) wanted.found = window;
    return wanted.found == nullptr;
  }

  HWND LogWindow() const {
    Search search{FindControlId("RTLog")->firstId, nullptr};
    EnumChildWindows(reinterpret_cast<HWND>(window_.Handle()), TakeIfIt,
                     reinterpret_cast<LPARAM>(&search));
    return search.found;
  }

  const std::size_t lines_;
  const std::size_t burst_;
  WindowsTickClock ticks_;
  WindowsLocalClock clock_;
  WindowsFileAppender files_;
  TimerQueue timers_{ticks_};
  Form form_;
  EventDispatch dispatch_;
  LogFile file_;
  StatusLog log_;
  NativeWindow window_;
  Timer source_;
  std::size_t written_ = 0;
  double began_ = 0;
  double first_ = 0;
  double last_ = 0;
  std::size_t longest_ = 0;
};

}  // namespace
}  // namespace tarvo

int main(int argc, char** argv) {
  const auto lines = argc == 3 ? std::strtoul(argv[1], nullptr, 10) : 0;
  const auto burst = argc == 3 ? std::strtoul(argv[2], nullptr, 10) : 0;
  if (lines < 2000 || burst < 1 || 1000 % burst != 0 || lines % burst != 0) {
    std::fprintf(stderr, "usage: log-flood LINES BURST, 2000 at least, BURST dividing 1000\n");
    return 1;
  }
  return tarvo::Flood(lines, burst).Run();
}
