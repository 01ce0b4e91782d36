#pragma once

#include <cstdint>
#include <string>

#include "core/component.h"
#include "platform/clock.h"
#include "toolkit/strip.h"

namespace tarvo {

/// Feeds the strips that show what each component did in the last hour, from the same states as the
/// status lights. Nothing of it is stored: a launcher that has just been started has seen nothing.
class LastHour {
 public:
  /// Gives each strip its words, which say that nothing was seen yet.
  LastHour(PerComponent<StatusStrip>& strips, const ComponentTable& components, TickClock& clock);

  /// To be called at each tick of the status lights, after them. Moments that were missed, because
  /// the machine slept, are unseen.
  void Note();

  /// Milliseconds that one cell of a strip covers.
  static constexpr std::uint32_t kCell = 3600000 / StatusStrip::kCells;

 private:
  std::size_t CellsSinceLast();

  PerComponent<StatusStrip>& strips_;
  const ComponentTable& components_;
  TickClock& clock_;
  bool begun_ = false;
  std::uint32_t cellBegan_ = 0;  ///< Tick count at the beginning of the newest cell.
};

/// What a component's cell shows: its alarm state, or that it is stopped when it is neither watched
/// nor known to run.
StripState StripStateOf(const Component& component);

/// A strip in words, such as "Map, last hour: trouble 0.5 min, healthy 12 min".
std::string WordsOf(const StatusStrip& strip, ComponentKind kind);

}  // namespace tarvo
