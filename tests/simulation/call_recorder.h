#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tarvo {

/// Thrown out of a port call to play the sudden death of the launcher. It is no exception of the
/// standard library, so nothing in the program catches it.
struct LauncherKilled {};

/// Every call that the launcher made of its ports, in order, and the place where a test strikes
/// between two of them.
class CallRecorder {
 public:
  /// Each port calls this first of all, before it does anything.
  void Note(std::string call) {
    ++count_;
    if (keeping_) calls_.push_back(std::move(call));
    if (count_ == killAt_) throw LauncherKilled{};
    if (beforeEach) beforeEach();
  }

  /// The calls since `Forget`, as "port.call(arguments)".
  const std::vector<std::string>& Calls() const { return calls_; }
  std::size_t Count() const { return count_; }
  void Forget() { calls_.clear(); }

  /// Forgets and counts only, for runs of millions of calls.
  void CountOnly() {
    keeping_ = false;
    calls_.clear();
  }

  /// Kills the launcher at the n-th call from now on, before that call does anything; 0 for never.
  void KillAtCall(std::size_t n) { killAt_ = n == 0 ? 0 : count_ + n; }

  /// How many of the kept calls begin so.
  std::size_t CountOf(const std::string& beginning) const {
    std::size_t count = 0;
    for (const std::string& call : calls_) {
      if (call.starts_with(beginning)) ++count;
    }
    return count;
  }

  std::function<void()> beforeEach;

 private:
  std::vector<std::string> calls_;
  std::size_t count_ = 0;
  std::size_t killAt_ = 0;
  bool keeping_ = true;
};

}  // namespace tarvo
