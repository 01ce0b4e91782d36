#include "toolkit/strip.h"

#include <algorithm>

namespace tarvo {

std::size_t StatusStrip::CountOf(StripState state) const {
  return static_cast<std::size_t>(std::count(cells_.begin(), cells_.end(), state));
}

bool StatusStrip::Note(StripState state, std::size_t movesOn) {
  for (std::size_t i = 0; i < std::min(movesOn, kCells); ++i) {
    cells_[begin_] = StripState::Unseen;
    begin_ = (begin_ + 1) % kCells;
  }
  StripState& newest = cells_[(begin_ + kCells - 1) % kCells];
  const bool differs = newest != state && newest != StripState::Trouble;
  if (differs) newest = state;
  if (!differs && movesOn == 0) return false;
  Changed();
  return true;
}

}  // namespace tarvo
