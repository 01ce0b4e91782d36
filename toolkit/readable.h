#pragma once

#include "toolkit/control.h"

namespace tarvo {

/// The contrast ratio of two colours: 1 (the same) to 21 (black and white).
double Contrast(Colour one, Colour other);

/// Whether white is easier to read on that ground than black.
bool IsDark(Colour ground);

/// An ink made readable on that ground: unchanged on a light one, which the program's colours are
/// made for; on a dark one lightened to the contrast that a text needs (4.5), its hue kept.
Colour Readable(Colour ink, Colour ground);

}  // namespace tarvo
