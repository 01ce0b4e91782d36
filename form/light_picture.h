#pragma once

#include <cstdint>
#include <vector>

#include "toolkit/colour.h"

namespace tarvo {

/// What a status light says. Each has a shape of its own, for those who cannot tell the colours.
enum class LightState { Healthy, Trouble, NotWatched, Stopped };

/// The state that a colour of `status_colours.h` stands for; an unknown colour is not watched.
LightState LightStateOf(Colour fill);

/// The state in a word or two, for screen readers and tool tips.
const char* WordsOf(LightState state);

/// A square picture of a light, `size` pixels wide, row by row from the top, as 0x00RRGGBB.
/// Healthy: a disc with a check mark. Trouble: a diamond with an exclamation mark. Not watched: a
/// ring with a dash. Stopped: a disc with a square. Edges are smooth.
std::vector<std::uint32_t> DrawLight(Colour fill, Colour background, int size);

}  // namespace tarvo
