#pragma once

#include <optional>
#include <string>
#include <vector>

#include "toolkit/grid.h"

namespace tarvo {

/// The place of the main window as a text for the settings: "left,top,width,height" in pixels of
/// the whole desktop. Screens may be left of or above the first one, so the first two may be
/// negative.
std::string TextOfPlace(const Place& place);

/// Reads such a text; nothing for any other text, for a number beyond any desktop (32767 either
/// way) and for a window without a width or a height.
std::optional<Place> PlaceOfText(const std::string& text);

/// Whether an operator could still drag a window there by its title bar: a part of the bar that is
/// wide enough for the mouse is on one of the screens. `titleHeight` and the screens are in pixels.
bool WithinReach(const Place& window, int titleHeight, const std::vector<Place>& screens);

/// The nearest place on that screen for a window, no larger than the screen; its upper left corner
/// is always on it.
Place FittedInto(const Place& window, const Place& screen);

}  // namespace tarvo
