#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/scripts.h"
#include "tests/simulation/call_recorder.h"
#include "tests/simulation/sim_clock.h"

namespace tarvo {

/// Scripts that only take their time.
class SimScripts final : public Scripts {
 public:
  static constexpr std::uint64_t kForEver = UINT64_MAX / 2;

  SimScripts(CallRecorder& recorder, SimClock& clock) : recorder_(recorder), clock_(clock) {}

  ScriptRun Start(const std::string& path, const std::vector<ScriptVariable>& variables) override {
    recorder_.Note("scripts.start(" + path + ")");
    if (refuses) return 0;
    std::string told;
    for (const ScriptVariable& variable : variables) told += variable.value + "|";
    started_.push_back({++last_, told, clock_.Age() + runTime});
    newStarts_ += told + '\n';
    return last_;
  }

  bool Runs(ScriptRun run) override {
    recorder_.Note("scripts.runs(" + std::to_string(run) + ")");
    return std::any_of(started_.begin(), started_.end(),
                       [&](const One& one) { return one.run == run && one.endsAt > clock_.Age(); });
  }

  void End(ScriptRun run) override {
    recorder_.Note("scripts.end(" + std::to_string(run) + ")");
    for (One& one : started_) {
      if (one.run == run && !outlivesItsEnd) one.endsAt = clock_.Age();
    }
  }

  std::size_t Running() const {
    return static_cast<std::size_t>(
        std::count_if(started_.begin(), started_.end(),
                      [this](const One& one) { return one.endsAt > clock_.Age(); }));
  }

  /// The values that each start since the last call was given, "value|value|...", a line each.
  std::string NewStarts() { return std::exchange(newStarts_, {}); }

  bool refuses = false;         ///< The system starts none.
  bool outlivesItsEnd = false;  ///< The system does not get rid of any.
  std::uint64_t runTime = 100;  ///< Milliseconds that one takes, from the next start on.

 private:
  struct One {
    ScriptRun run;
    std::string told;
    std::uint64_t endsAt;
  };

  CallRecorder& recorder_;
  SimClock& clock_;
  std::vector<One> started_;
  std::string newStarts_;
  ScriptRun last_ = 0;
};

}  // namespace tarvo
