#pragma once

#include <windows.h>

#include <string>

#include "toolkit/colour.h"

namespace tarvo {

/// The appearance of a coloured button at one moment.
struct ButtonFace {
  std::string caption;
  char accessKey = 0;  ///< Underlined when the caption has it and `showKey` is set; lower case.
  bool showKey = false;
  Colour colour = 0;
  Colour behind = 0;  ///< The page's colour around the rounded corners.
  bool hot = false;
  bool pressed = false;
  bool focused = false;
  bool disabled = false;
  int corner = 4;  ///< Pixels.
};

/// The caption with `&` before the first occurrence of the access key, if it has that letter.
std::string Marked(std::string caption, char accessKey);

/// Draws the face in one step, so that nothing flickers. Under high contrast the system's own
/// colours replace the face's.
void DrawButtonFace(HDC target, const RECT& area, const ButtonFace& face, HFONT font);

}  // namespace tarvo
