#pragma once

#include <deque>
#include <initializer_list>

#include "platform/random_source.h"
#include "tests/simulation/call_recorder.h"

namespace tarvo {

/// Chance from a script. Without one every draw is 0, the smallest.
class SimRandom final : public RandomSource {
 public:
  explicit SimRandom(CallRecorder& recorder) : recorder_(recorder) {}

  void Reseed() override { recorder_.Note("random.reseed()"); }
  double Fraction() override {
    recorder_.Note("random.fraction()");
    if (script_.empty()) return 0;
    const double next = script_.front();
    script_.pop_front();
    return next;
  }

  /// The next fractions, behind those that are waiting.
  void Script(std::initializer_list<double> fractions) {
    script_.insert(script_.end(), fractions.begin(), fractions.end());
  }
  /// Forgets what is waiting.
  void Drop() { script_.clear(); }

 private:
  CallRecorder& recorder_;
  std::deque<double> script_;
};

}  // namespace tarvo
