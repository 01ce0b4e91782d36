#pragma once

#include "toolkit/colour.h"

namespace tarvo {

/// How far two colours are apart for the eye: 1 (the same) to 21 (black and white).
double Contrast(Colour one, Colour other);

/// Whether white is easier to read on that ground than black.
bool IsDark(Colour ground);

/// An ink for that ground: as it is on a light one, for which the program's colours are made; on a
/// dark one as much lighter as a text needs (a contrast of 4.5), its hue kept.
Colour Readable(Colour ink, Colour ground);

}  // namespace tarvo
