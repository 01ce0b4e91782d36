#pragma once

#include <cstdio>

namespace tarvo {

/// A bench's figures: one line each, with name, value, unit, limit, and held or short.
class Figures {
 public:
  /// Held when the value is at most the limit.
  void AtMost(const char* name, double value, const char* unit, double limit) {
    Line(name, value, unit, "limit", limit, value <= limit);
  }
  /// Held when the value is at least the limit.
  void AtLeast(const char* name, double value, const char* unit, double limit) {
    Line(name, value, unit, "least", limit, value >= limit);
  }
  /// A value that is reported and not judged.
  void Report(const char* name, double value, const char* unit) {
    std::printf("%-48s %10.3f %s\n", name, value, unit);
  }

  /// The bench's exit code: 1 when a figure is short.
  int ExitCode() const { return allHeld_ ? 0 : 1; }

 private:
  void Line(const char* name, double value, const char* unit, const char* word, double limit,
            bool held) {
    std::printf("%-48s %10.3f %-8s %s %-8g %s\n", name, value, unit, word, limit,
                held ? "held" : "short");
    allHeld_ = allHeld_ && held;
  }

  bool allHeld_ = true;
};

}  // namespace tarvo
