#pragma once

#include "toolkit/colour.h"

namespace tarvo {

/// The colours of the status log: the time stamp, and the text by its level.
inline constexpr Colour kStampColour = Rgb(0, 0, 128);
inline constexpr Colour kInfoColour = Rgb(0, 128, 0);
inline constexpr Colour kNoticeColour = Rgb(255, 128, 0);
inline constexpr Colour kAlertColour = Rgb(255, 0, 0);
inline constexpr Colour kExtraColour = Rgb(0, 0, 192);

/// The colours of a start button: its component is started, or stopped.
inline constexpr Colour kStartedColour = Rgb(0, 192, 0);
inline constexpr Colour kStoppedColour = Rgb(192, 192, 192);

/// The colours of a status light.
inline constexpr Colour kTroubleLight = 0x0000FF;
inline constexpr Colour kHealthyLight = 0x00C000;
inline constexpr Colour kUnwatchedLight = 0xC0C0C0;
inline constexpr Colour kStoppedLight = Rgb(128, 128, 128);

}  // namespace tarvo
