#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "tests/simulation/launcher.h"
#include "tests/simulation/log_order.h"

namespace tarvo {

/// Looks at a launcher after each of its events, whatever happens on the machine, and writes down
/// where it breaks what the operators' guide promises:
///
/// - a component that counts as started has its crash watch;
/// - never two of one executable by the launcher's hand;
/// - a death is told within 5 seconds, and as much later as servers that do not answer hold the
///   launcher up: 2 seconds for each of the others, 1 more for each probe by a name that is not
///   answered, and the time that stopping and replacing take;
/// - a frozen server is killed, back, or gone within its autokill time and five seconds more, and
///   the same delays;
/// - no event takes longer than the waits that the guide allows for what it did;
/// - the lines of the log come in an order that can be true.
class StormWatch final {
 public:
  explicit StormWatch(SimMachine& machine) : machine_(machine) {}

  /// From now on this launcher is looked at; the one before is gone.
  void Follow(Launcher& launcher);
  void Leave();
  /// Somebody has done something to the machine.
  void Look();
  /// The machine has slept: nobody can have been in time.
  void ForgetTimes();

  const std::vector<std::string>& Broken() const { return broken_; }
  void Complain(const std::string& what);

  /// Milliseconds from each death to a successor that was launched or adopted.
  std::vector<std::uint32_t> successors;
  std::size_t deaths = 0;
  std::uint64_t longestProbe = 0;  ///< Milliseconds of the longest event that only probed.
  std::uint64_t longestEvent = 0;

 private:
  struct Lines {
    std::size_t stops = 0;
    std::size_t kills = 0;
    std::size_t adoptions = 0;
    std::size_t files = 0;  ///< Copies, and files written by the randomizer.
  };
  struct One {
    std::optional<std::uint64_t> deadSince;  ///< Since its death, or the launcher's last answer.
    std::optional<std::uint64_t> diedAt;
    std::uint64_t probing = 0;   ///< Milliseconds since `deadSince` in events that only probe.
    std::uint64_t stopping = 0;  ///< And in those that stop servers or replace files.
    std::optional<std::uint64_t> frozenSince;
    std::uint64_t heldUp = 0;  ///< Milliseconds in events since then.
    bool told = false;         ///< A line of this event has answered the death.
  };

  void Hear(const std::string& text);
  void HearOf(ComponentKind kind, const std::string& text);
  void EventOver();
  void CheckLength(std::uint64_t took);
  void Spend(std::uint64_t took);
  void LookAt(ComponentKind kind);
  void CheckDeath(ComponentKind kind);
  void CheckFreeze(ComponentKind kind);
  bool Lives(ComponentKind kind);

  SimMachine& machine_;
  Launcher* launcher_ = nullptr;
  LogOrder order_;
  Lines lines_;
  PerComponent<One> all_;
  std::size_t secondCopies_ = 0;
  std::deque<std::string> recent_;  ///< The last lines of the log, for a complaint.
  std::vector<std::string> broken_;
};

}  // namespace tarvo
