#include "desktop/last_hour.h"

namespace tarvo {
namespace {

constexpr std::size_t kCellsInMinute = 60000 / LastHour::kCell;
static_assert(kCellsInMinute == 2);

struct Word {
  StripState state;
  const char* text;
};

constexpr Word kWords[] = {{StripState::Trouble, "trouble"},
                           {StripState::Healthy, "healthy"},
                           {StripState::NotWatched, "not watched"},
                           {StripState::Stopped, "stopped"}};

std::string Minutes(std::size_t cells) {
  const std::string half = cells % kCellsInMinute == 0 ? "" : ".5";
  return std::to_string(cells / kCellsInMinute) + half + " min";
}

}  // namespace

StripState StripStateOf(const Component& component) {
  switch (component.AlarmState) {
    case AlarmState::Healthy:
      return StripState::Healthy;
    case AlarmState::Trouble:
      return StripState::Trouble;
    case AlarmState::NotWatched:
      break;
  }
  return component.ProcessId == 0 ? StripState::Stopped : StripState::NotWatched;
}

std::string WordsOf(const StatusStrip& strip, ComponentKind kind) {
  std::string words;
  for (const Word& word : kWords) {
    const std::size_t cells = strip.CountOf(word.state);
    if (cells == 0) continue;
    words += std::string(words.empty() ? "" : ", ") + word.text + " " + Minutes(cells);
  }
  return std::string(NameOf(kind)) + ", last hour: " + (words.empty() ? "nothing seen" : words);
}

LastHour::LastHour(PerComponent<StatusStrip>& strips, const ComponentTable& components,
                   TickClock& clock)
    : strips_(strips), components_(components), clock_(clock) {
  for (ComponentKind kind : kComponents) strips_[kind].SetToolTip(WordsOf(strips_[kind], kind));
}

void LastHour::Note() {
  const std::size_t movesOn = CellsSinceLast();
  for (ComponentKind kind : kComponents) {
    StatusStrip& strip = strips_[kind];
    const bool differs = strip.Note(StripStateOf(components_[kind]), movesOn);
    if (differs) strip.SetToolTip(WordsOf(strip, kind));
  }
}

std::size_t LastHour::CellsSinceLast() {
  const std::uint32_t now = clock_.Milliseconds();
  if (!begun_) cellBegan_ = now;
  begun_ = true;
  const std::uint32_t cells = (now - cellBegan_) / kCell;  // Correct across a wrap, too.
  cellBegan_ += cells * kCell;
  return cells;
}

}  // namespace tarvo
