#pragma once

#include <string>
#include <vector>

#include "platform/self_restart.h"
#include "tests/simulation/call_recorder.h"
#include "tests/simulation/sim_clock.h"

namespace tarvo {

/// What the system does about a launcher that dies of a fault of its own. The launcher that a test
/// starts next is started with `arguments`.
class SimSelfRestart final : public SelfRestart {
 public:
  SimSelfRestart(CallRecorder& recorder, const SimClock& clock)
      : recorder_(recorder), clock_(clock) {}

  std::string Arguments() override {
    started_ = clock_.Age();
    return arguments;
  }
  void Keep(const RestartOrder& order) override { order_ = order; }
  void Die(OwnFault fault) override {
    recorder_.Note(fault == OwnFault::OutOfMemory ? "selfRestart.die(out of memory)"
                                                  : "selfRestart.die(exception)");
    Crash();
    if (started) throw LauncherKilled{};
  }

  /// The launcher dies of a fault, as an access violation would have it: tells whether the system
  /// starts it again, and then with which arguments.
  void Crash() {
    started = !order_.arguments.empty() && clock_.Age() - started_ >= kShortestLife;
    arguments = started ? order_.arguments : "";
    order_ = {};
  }

  const RestartOrder& Order() const { return order_; }

  std::string arguments;
  bool started = false;

 private:
  static constexpr std::uint64_t kShortestLife = 60000;

  CallRecorder& recorder_;
  const SimClock& clock_;
  RestartOrder order_;
  std::uint64_t started_ = 0;
};

}  // namespace tarvo
