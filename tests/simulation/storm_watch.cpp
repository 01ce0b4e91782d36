#include "tests/simulation/storm_watch.h"

#include <algorithm>

#include "core/start_stop.h"

namespace tarvo {
namespace {

constexpr std::uint64_t kCrashLook = 5000;
constexpr std::uint64_t kProbe = 2000;         // A name and a connect, one second each.
constexpr std::uint64_t kMostProbing = 10000;  // Two others' two probes each, and two own names.
constexpr std::uint64_t kStop = 5500;          // Five seconds, and the half of the last attempt.
constexpr std::uint64_t kKill = 500;
constexpr std::uint64_t kFile = 5100;
constexpr std::uint64_t kFreezeLook = 5000;
constexpr std::size_t kMostComplaints = 20;
constexpr std::size_t kKeptLines = 20;

}  // namespace

void StormWatch::Follow(Launcher& launcher) {
  Leave();
  launcher_ = &launcher;
  launcher.TheProgram().TheLog().listeners.emplace_back(
      [this](const LogLine& line) { Hear(line.pieces[1].text); });
  launcher.onEventOver = [this] { EventOver(); };
}

void StormWatch::Leave() {
  launcher_ = nullptr;
  order_ = {};
  lines_ = {};
  all_ = {};
}

void StormWatch::Complain(const std::string& what) {
  if (broken_.size() >= kMostComplaints) return;
  std::string text = std::to_string(machine_.clock.Age()) + " ms: " + what;
  for (const std::string& line : recent_) text += "\n    " + line;
  broken_.push_back(text);
}

void StormWatch::ForgetTimes() {
  for (One& one : all_) one = {};
}

void StormWatch::Hear(const std::string& text) {
  recent_.push_back(std::to_string(machine_.clock.Age()) + " " + text);
  if (recent_.size() > kKeptLines) recent_.pop_front();
  const std::string wrong = order_.Take(text);
  if (!wrong.empty()) Complain(wrong);
  for (ComponentKind kind : kComponents) HearOf(kind, text);
  if (text.starts_with("Saving ") || text.starts_with("Upgrading ") ||
      text.starts_with("Starting Randomizer")) {
    ++lines_.files;
  }
}

void StormWatch::HearOf(ComponentKind kind, const std::string& text) {
  One& one = all_[kind];
  const std::string name = NameOf(kind);
  const bool stopped = text == name + " Server Stopped!";
  const bool crashed = text == name + " Server crashed, restarting...";
  const bool shutDown = text == "Shuting down " + name + "...";
  if (stopped) ++lines_.stops;
  if (crashed || shutDown) ++lines_.kills;
  if (text.starts_with(name + " Server under control")) ++lines_.adoptions;
  const char* const servers[] = {kLogin, kChar, kMap};
  const bool refused =
      text.starts_with(std::string("[") + servers[IndexOf(kind)] + "] can't be started");
  const bool tried = refused || text.starts_with(name + " Server Started") ||
                     text.starts_with(name + " Server under control");
  if (stopped || crashed || tried) one.told = true;
  if (text.starts_with(name + " server freeze!") || text.starts_with(name + " server is freeze!")) {
    one.frozenSince = machine_.clock.Age();
    one.heldUp = 0;
  }
  if (stopped || crashed || shutDown || text == name + " server is back!") one.frozenSince.reset();
}

void StormWatch::EventOver() {
  const std::uint64_t took = launcher_->LastEventTook();
  CheckLength(took);
  Spend(took);
  lines_ = {};
  Look();
}

void StormWatch::CheckLength(std::uint64_t took) {
  const std::uint64_t allowed = 2 * kProbe * (1 + lines_.adoptions) + kStop * lines_.stops +
                                kKill * lines_.kills + kFile * lines_.files;
  longestEvent = std::max(longestEvent, took);
  if (lines_.stops + lines_.kills + lines_.files == 0) longestProbe = std::max(longestProbe, took);
  if (took > allowed) {
    Complain("an event took " + std::to_string(took) + " ms, allowed are " +
             std::to_string(allowed));
  }
}

void StormWatch::Spend(std::uint64_t took) {
  const bool onlyProbes = lines_.stops + lines_.files == 0;
  for (One& one : all_) {
    (onlyProbes ? one.probing : one.stopping) += took;
    one.heldUp += took;
  }
}

void StormWatch::Look() {
  if (!launcher_ || launcher_->Ended()) return;
  if (machine_.processes.SecondCopies() > secondCopies_) Complain("a second copy was started");
  secondCopies_ = machine_.processes.SecondCopies();
  for (ComponentKind kind : kComponents) LookAt(kind);
}

bool StormWatch::Lives(ComponentKind kind) {
  const ProcessId id = launcher_->Of(kind).ProcessId;
  const auto& running = machine_.processes.Running();
  const bool listed = std::any_of(running.begin(), running.end(),
                                  [id](const SimProcess& process) { return process.id == id; });
  return listed && machine_.processes.WindowOf(id) != nullptr;
}

void StormWatch::LookAt(ComponentKind kind) {
  One& one = all_[kind];
  const bool told = std::exchange(one.told, false);
  Form& form = launcher_->TheForm();
  if (form.status.bStart[IndexOf(kind)].Caption() != "Stop") {
    one = {};
    return;
  }
  if (!form.timers.CrashWatch[kind].Enabled()) {
    Complain(std::string(NameOf(kind)) + " counts as started and has no watch");
  }
  const std::uint64_t now = machine_.clock.Age();
  if (Lives(kind)) {
    if (one.diedAt) successors.push_back(static_cast<std::uint32_t>(now - *one.diedAt));
    one.deadSince.reset();
    one.diedAt.reset();
  } else if (!one.deadSince || told) {
    if (!one.diedAt) {
      ++deaths;
      one.diedAt = now;
    }
    one.deadSince = now;
    one.probing = one.stopping = 0;
  }
  CheckDeath(kind);
  CheckFreeze(kind);
}

void StormWatch::CheckDeath(ComponentKind kind) {
  One& one = all_[kind];
  if (!one.deadSince) return;
  const std::uint64_t waited = machine_.clock.Age() - *one.deadSince;
  const std::uint64_t allowed = kCrashLook + std::min(one.probing, kMostProbing) + one.stopping;
  if (waited <= allowed) return;
  Complain(std::string(NameOf(kind)) + " has been dead for " + std::to_string(waited) +
           " ms, allowed are " + std::to_string(allowed));
  one.deadSince = machine_.clock.Age();
}

void StormWatch::CheckFreeze(ComponentKind kind) {
  One& one = all_[kind];
  if (!one.frozenSince || Lives(kind) == false) return;
  const std::uint64_t now = machine_.clock.Age();
  // As the guide has it: a freeze that spans the tick count's wrap is not killed.
  if (now / SimClock::kWrap != *one.frozenSince / SimClock::kWrap) return one.frozenSince.reset();
  const TextBox& box = launcher_->TheForm().servers.TTO[kind];
  const auto seconds = static_cast<std::uint64_t>(AutokillTime(box, kind));
  const std::uint64_t waited = now - *one.frozenSince;
  const std::uint64_t allowed = seconds * 1000 + kFreezeLook + one.heldUp;
  if (waited <= allowed) return;
  Complain(std::string(NameOf(kind)) + " has been frozen for " + std::to_string(waited) +
           " ms, allowed are " + std::to_string(allowed));
  one.frozenSince.reset();
}

}  // namespace tarvo
