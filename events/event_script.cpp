#include "events/event_script.h"

#include <algorithm>
#include <utility>

#include "support/date_time.h"

namespace tarvo {
std::string ScriptValueOf(std::string text) {
  if (text.size() > EventScript::kLongestValue) text.resize(EventScript::kLongestValue);
  for (char& letter : text) {
    if (static_cast<unsigned char>(letter) < ' ') letter = ' ';
    if (letter == '"') letter = '\'';
  }
  return text;
}

void EventScript::Note(const EventReport& report) {
  if (!controls_.runs.Checked()) return;
  const std::string time = GeneralDate(localClock_.Now());
  const auto same = std::find_if(waiting_.begin(), waiting_.end(), [&](const Waiting& waiting) {
    return waiting.last.event == report.event && waiting.last.component == report.component;
  });
  if (same == waiting_.end()) {
    waiting_.push_back({report, time});
  } else {
    *same = {report, time, same->count + 1};
  }
  controls_.timer.SetEnabled(true);
}

void EventScript::Tick() {
  EndOverdue();
  StartDue();
  if (waiting_.empty() && running_.empty()) controls_.timer.SetEnabled(false);
}

void EventScript::EndOverdue() {
  std::erase_if(running_, [this](const Running& running) { return !scripts_.Runs(running.run); });
  const std::uint32_t now = tickClock_.Milliseconds();
  for (const Running& running : running_) {
    if (now - running.since >= kLongestRun) scripts_.End(running.run);
  }
}

void EventScript::StartDue() {
  if (!controls_.runs.Checked()) waiting_.clear();
  const std::uint32_t now = tickClock_.Milliseconds();
  std::erase_if(lately_, [now](const Started& start) { return now - start.at >= kOneStartPer; });
  for (auto next = waiting_.begin(); next != waiting_.end() && running_.size() < kMostAtOnce;) {
    if (StartedLately(next->last)) {
      ++next;
      continue;
    }
    Start(*next);
    next = waiting_.erase(next);
  }
}

bool EventScript::StartedLately(const EventReport& report) const {
  return std::any_of(lately_.begin(), lately_.end(), [&](const Started& start) {
    return start.event == report.event && start.component == report.component;
  });
}

void EventScript::Start(const Waiting& waiting) {
  if (!files_.Exists(path_)) return;
  const EventReport& last = waiting.last;
  // Before the start: that of a slow system is no part of the minute that the script has.
  lately_.push_back({last.event, last.component, tickClock_.Milliseconds()});
  const ScriptRun run = scripts_.Start(
      path_, {{"TARVO_EVENT", NameOf(last.event)},
              {"TARVO_COMPONENT", (last.component ? WordOf(*last.component) : "all")},
              {"TARVO_TEXT", ScriptValueOf(last.text)},
              {"TARVO_TIME", waiting.time},
              {"TARVO_COUNT", std::to_string(waiting.count)},
              {"TARVO_SERVER", ScriptValueOf(controls_.serverName.Caption())}});
  if (run != 0) running_.push_back({run, tickClock_.Milliseconds()});
}

}  // namespace tarvo
