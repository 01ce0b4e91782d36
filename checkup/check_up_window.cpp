#include "checkup/check_up_window.h"

#include <algorithm>

namespace tarvo {
namespace {

constexpr std::uint32_t kFirstPause = 1000;  // Milliseconds.
constexpr std::uint32_t kPauseByItself = 100;
constexpr std::uint32_t kPauseAsked = 10;
constexpr char kCaption[] = "Check-up";

}  // namespace

void CheckUpWindow::WireControls() {
  controls_.button.onClick = [this] { OpenAndCheck(); };
  controls_.again.onClick = [this] { Check(); };
  controls_.repair.onClick = [this] { Repair(); };
  controls_.window.onCopy = [this] { Copy(); };
  controls_.timer.onTick = [this] { Tick(); };
}

void CheckUpWindow::BeginByItself() {
  if (controls_.timer.Enabled()) return;
  byItself_ = true;
  checkUp_.Begin(ShownChoices());
  controls_.timer.SetInterval(kFirstPause);
  controls_.timer.SetEnabled(true);
}

void CheckUpWindow::OpenAndCheck() {
  controls_.window.Open();
  Check();
}

void CheckUpWindow::Check() {
  byItself_ = false;
  checkUp_.Begin(ShownChoices());
  controls_.summary.SetCaption("Looking the server root over...");
  controls_.repair.SetEnabled(false);
  controls_.again.SetEnabled(false);
  controls_.timer.SetInterval(kPauseAsked);
  controls_.timer.SetEnabled(true);
}

void CheckUpWindow::Tick() {
  if (byItself_) {
    const auto& preparation = controls_.preparation;
    const bool starts = std::any_of(preparation.begin(), preparation.end(),
                                    [](const Timer& timer) { return timer.Enabled(); });
    if (starts) return;
    controls_.timer.SetInterval(kPauseByItself);
  }
  if (checkUp_.Step()) return;
  controls_.timer.SetEnabled(false);
  Show();
}

void CheckUpWindow::Show() {
  const Findings& found = checkUp_.Found();
  std::vector<std::string> lines;
  for (const Finding& finding : found) {
    for (std::string& line : LinesOf(finding)) lines.push_back(std::move(line));
  }
  controls_.findings.SetItems(lines);
  controls_.summary.SetCaption(SummaryOf(found));
  controls_.repair.SetEnabled(!FilesToRepair().empty());
  controls_.again.SetEnabled(true);
  const std::size_t count = CountForAttention(found);
  controls_.button.SetCaption(
      kCaption + (count > 0 ? " (" + std::to_string(count) + ")..." : std::string("...")));
}

void CheckUpWindow::Copy() {
  std::string text;
  for (const std::string& line : controls_.findings.Items()) text += line + "\r\n";
  if (clipboard_.PutText(text + controls_.summary.Caption() + "\r\n")) return;
  messageBoxes_.Ask({"Another program keeps the clipboard open.", BoxIcon::Exclamation});
}

Choices CheckUpWindow::ShownChoices() const {
  Choices choices;
  for (ComponentKind kind : kComponents) {
    choices.of[kind] = {controls_.executables[kind].Text(),
                        controls_.autokill[IndexOf(kind)].Checked(),
                        controls_.autokillTimes[kind].Text(), controls_.newFiles[kind].Text()};
  }
  choices.writesLogFile = controls_.writesLogFile.Checked();
  return choices;
}

std::vector<std::string> CheckUpWindow::FilesToRepair() const {
  std::vector<std::string> files;
  for (const Finding& finding : checkUp_.Found()) {
    if (finding.name == kCheckNames[0] && finding.severity != Severity::Note) {
      files.push_back(finding.about);
    }
  }
  return files;
}

void CheckUpWindow::Repair() {
  if (asking_ || controls_.timer.Enabled()) return;
  const std::vector<std::string> files = FilesToRepair();
  std::string question = "Give these files line ends of Windows (CR LF)?\r\n";
  std::vector<std::string> copies;
  for (const std::string& file : files) {
    copies.push_back(repair_.CopyOf(root_.WithSeparator() + file));
    question += "\r\n" + file + "\r\n    The old one is kept as " + copies.back();
  }
  question += "\r\n\r\nThe launcher reads them at its next start.";
  asking_ = true;
  const Answer answer = messageBoxes_.Ask({question, BoxIcon::Question, BoxButtons::YesNo, true});
  asking_ = false;
  if (answer != Answer::Yes) return;
  for (std::size_t i = 0; i < files.size(); ++i) {
    const auto reason = repair_.Repair(root_.WithSeparator() + files[i], copies[i]);
    if (reason) messageBoxes_.Ask({*reason, BoxIcon::Critical});
  }
  Check();
}

}  // namespace tarvo
