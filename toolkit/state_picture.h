#pragma once

#include <cstdint>
#include <vector>

#include "toolkit/control.h"
#include "toolkit/controls.h"

namespace tarvo {

/// A square picture of a light, `size` pixels wide, row by row from the top, as 0x00RRGGBB.
/// Healthy: a disc with a check mark. Trouble: a diamond with an exclamation mark. Not watched: a
/// ring with a dash. Stopped: a disc with a square. Edges are smooth.
std::vector<std::uint32_t> DrawLight(LightState state, Colour fill, Colour background, int size);

/// The inks of a mark, 0xRRGGBB.
struct MarkInks {
  std::uint32_t healthy;
  std::uint32_t check;
  std::uint32_t trouble;
  std::uint32_t other;
};

/// The same states where there is little space: one pixel of a mark that is `size` pixels wide, as
/// 0xAARRGGBB. Healthy: a disc, with a check mark from 10 pixels on. Trouble: a cross. Any other: a
/// ring. A pixel that is covered in part has the colour of that part alone.
std::uint32_t MarkPixel(LightState state, const MarkInks& inks, int size, int column, int row);

}  // namespace tarvo
