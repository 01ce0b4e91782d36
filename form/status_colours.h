#pragma once

#include "core/status_log.h"
#include "toolkit/controls.h"

namespace tarvo {

/// The colours of the status log: the time stamp, and the text by its level. The palette of its
/// view has this order, which is that of `LogInk`.
inline constexpr Colour kStampColour = Rgb(0, 0, 128);
inline constexpr Colour kInfoColour = Rgb(0, 128, 0);
inline constexpr Colour kNoticeColour = Rgb(255, 128, 0);
inline constexpr Colour kAlertColour = Rgb(255, 0, 0);
inline constexpr Colour kExtraColour = Rgb(0, 0, 192);
inline constexpr Colour kLogColours[] = {kStampColour, kInfoColour, kNoticeColour, kAlertColour,
                                         kExtraColour};
constexpr Colour ColourOf(LogInk ink) { return kLogColours[static_cast<int>(ink)]; }

/// The colours of a start button: its component is started, or stopped.
inline constexpr Colour kStartedColour = Rgb(0, 192, 0);
inline constexpr Colour kStoppedColour = Rgb(192, 192, 192);

/// The colours of a status light.
inline constexpr Colour kTroubleLight = 0x0000FF;
inline constexpr Colour kHealthyLight = 0x00C000;
inline constexpr Colour kUnwatchedLight = 0xC0C0C0;
inline constexpr Colour kStoppedLight = Rgb(128, 128, 128);
constexpr Colour ColourOf(LightState state) {
  constexpr Colour kColours[] = {kHealthyLight, kTroubleLight, kUnwatchedLight, kStoppedLight};
  return kColours[static_cast<int>(state)];
}

/// A light's state in a word or two, for screen readers and tool tips.
constexpr const char* WordsOf(LightState state) {
  constexpr const char* kWords[] = {"healthy", "trouble", "not watched", "stopped"};
  return kWords[static_cast<int>(state)];
}

}  // namespace tarvo
