#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "toolkit/control.h"

namespace tarvo {

/// The states of a cell; `Unseen` is a time that nobody observed.
enum class StripState : std::uint8_t { Unseen, Stopped, NotWatched, Healthy, Trouble };

/// A row of cells, from the oldest at the left to the newest at the right: the history of a
/// component over some time. All of it is unseen at first.
class StatusStrip : public Control {
 public:
  static constexpr std::size_t kCells = 120;

  /// 0 is the oldest cell, `kCells` - 1 the newest.
  StripState Cell(std::size_t index) const { return cells_[(begin_ + index) % kCells]; }
  /// How many cells have this state.
  std::size_t CountOf(StripState state) const;

  /// Moves on by so many cells, which are unseen, then notes a state in the newest one. A cell that
  /// was in trouble once stays so; otherwise the state noted last counts. True when the strip looks
  /// different now; only then is the mirror refreshed.
  bool Note(StripState state, std::size_t movesOn);

 private:
  std::array<StripState, kCells> cells_{};
  std::size_t begin_ = 0;  ///< Place of the oldest cell.
};

}  // namespace tarvo
