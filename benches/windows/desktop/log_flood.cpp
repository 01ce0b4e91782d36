// Floods the log of the launcher's window and prints, one a line, a name and a value:
//
//   log-flood LINES BURST      BURST lines in each event, events as fast as the timers allow
//
//   last                       milliseconds that a line takes until it is drawn, of the last 1000
//   first                      the same of the first 1000 of another window, new and beside the
//                              first one; the two take turns at each event, so that both have the
//                              same of what else the machine does
//   lines                      how many are in view at the end
//   source                     the longest source of the view, in characters
//   differs                    characters that the window shows other than the view has
//   moved                      pixels that a line that is read, and selected, moves while 150 come;
//                              10000 when another text is selected then
//   answer, idle               the longest that the window took to answer another thread before
//                              the last 1000, and an idle window at the same time, ms

#include <windows.h>
// After windows.h, which it needs.
#include <richedit.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
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
class LogWindow {
 public:
  LogWindow()
      : form_(timers_),
        file_(form_.servers.WLog, form_.servers.LogH, files_, clock_, "."),
        log_(clock_),
        window_(form_, timers_, dispatch_) {
    log_.listeners = {[this](const LogLine& line) { ShowLine(form_.status.RTLog, line); },
                      [this](const LogLine& line) { file_.Take(line); }};
    form_.frame.SSTab1.SetPage(0);
  }

  /// At the upper edge of the screen. Showing it is over when it returns: that is another figure.
  void Show(LONG left) {
    SetWindowPos(Main(), nullptr, left, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    form_.frame.window.SetVisible(true);
    RedrawWindow(Main(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  }

  HWND Main() const { return reinterpret_cast<HWND>(window_.Handle()); }
  HWND Log() const {
    Search search{FindControlId("RTLog")->firstId, nullptr};
    EnumChildWindows(Main(), TakeIfIt, reinterpret_cast<LPARAM>(&search));
    return search.found;
  }
  const RichTextView& View() const { return form_.status.RTLog; }
  NativeWindow& Native() { return window_; }
  TimerQueue& Timers() { return timers_; }
  void End() { form_.frame.window.End(0); }

  /// Texts and levels of the program's own kinds.
  void Line() {
    static const char* const kTexts[] = {"Map Server crashed, restarting...",
                                         "Starting Map Server...", "Listening Map Server",
                                         "Map Server running with Normal priority."};
    static constexpr LogLevel kLevels[] = {kAlert, kNotice, kInfo, kExtra};
    const std::size_t kind = ++written_ % std::size(kTexts);
    // As many digits in every line.
    log_.LogStatus(kTexts[kind] + std::to_string(kFirstNumber + written_), kLevels[kind]);
    longest_ = std::max(longest_, View().SourceLength());
  }

  void Burst(std::size_t lines) {
    for (std::size_t i = 0; i < lines; ++i) Line();
    SendMessageA(Log(), WM_NULL, 0, 0);
    UpdateWindow(Log());
  }

  std::size_t Written() const { return written_; }
  std::size_t LongestSource() const { return longest_; }

 private:
  static constexpr std::size_t kFirstNumber = 100000;

  struct Search {
    int id;
    HWND found;
  };

  static BOOL CALLBACK TakeIfIt(HWND window, LPARAM argument) {
    auto& wanted = *reinterpret_cast<Search*>(argument);
    if (GetDlgCtrlID(window) == wanted.id) wanted.found = window;
    return wanted.found == nullptr;
  }

  WindowsTickClock ticks_;
  WindowsLocalClock clock_;
  WindowsFileAppender files_;
  TimerQueue timers_{ticks_};
  Form form_;
  EventDispatch dispatch_;
  LogFile file_;
  StatusLog log_;
  NativeWindow window_;
  std::size_t written_ = 0;
  std::size_t longest_ = 0;
};

class Flood {
 public:
  Flood(std::size_t lines, std::size_t burst) : lines_(lines), burst_(burst) {
    source_.onTick = [this] { Tick(); };
  }

  int Run() {
    used_.Show(0);
    source_.SetEnabled(true);
    asker_ = std::make_unique<Asker>(used_.Main());
    idleAsker_ = std::make_unique<Asker>(idle_.Window());
    used_.Native().Run();
    ReadOn(used_.Log());
    return 0;
  }

 private:
  static void Print(const char* name, double value) { std::printf("%s %.3f\n", name, value); }

  void Tick() {
    if (used_.Written() < lines_ - kSample) return used_.Burst(burst_);
    if (!fresh_) BeginSample();
    last_ += TimeOf(used_);
    first_ += TimeOf(*fresh_);
    if (used_.Written() < lines_) return;
    source_.SetEnabled(false);
    Report();
    used_.End();
  }

  /// Neither window covers the other.
  void BeginSample() {
    Print("answer", asker_->Worst());
    Print("idle", idleAsker_->Worst());
    fresh_ = std::make_unique<LogWindow>();
    RECT place{};
    GetWindowRect(used_.Main(), &place);
    fresh_->Show(place.right);
  }

  double TimeOf(LogWindow& window) const {
    const double began = Now();
    window.Burst(burst_);
    return Now() - began;
  }

  void Report() const {
    const std::string kept = used_.View().Text();
    const std::string shown = TextOf(used_.Log());
    Print("first", first_ / kSample);
    Print("last", last_ / kSample);
    Print("lines", static_cast<double>(std::count(shown.begin(), shown.end(), '\n')));
    Print("source", static_cast<double>(used_.LongestSource()));
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
    for (int i = 0; i < 50; ++i) used_.Line();
    for (int i = 0; i < 100; ++i) {
      used_.Line();
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

  const std::size_t lines_;
  const std::size_t burst_;
  LogWindow used_;
  IdleWindow idle_;
  std::unique_ptr<Asker> asker_;
  std::unique_ptr<Asker> idleAsker_;
  std::unique_ptr<LogWindow> fresh_;
  Timer source_{used_.Timers(), "Flood", 10};
  double first_ = 0;
  double last_ = 0;
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
