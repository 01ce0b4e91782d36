#pragma once

#include <cstdint>

namespace tarvo {

/// A colour as Windows keeps it (COLORREF): 0x00BBGGRR.
using Colour = std::uint32_t;

constexpr Colour Rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
  return red | green << 8 | blue << 16;
}

}  // namespace tarvo
