#include "toolkit/readable.h"

#include <algorithm>
#include <cmath>

namespace tarvo {
namespace {

constexpr double kTextContrast = 4.5;
constexpr double kFlare = 0.05;  ///< The light that any screen reflects.
constexpr int kSteps = 32;

double Part(Colour colour, int shift) {
  const double part = static_cast<double>(colour >> shift & 0xFF) / 255;
  return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

double Luminance(Colour colour) {
  return 0.2126 * Part(colour, 0) + 0.7152 * Part(colour, 8) + 0.0722 * Part(colour, 16);
}

/// Moved towards white by so many of the steps.
Colour Lightened(Colour colour, int steps) {
  Colour lighter = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    const int part = static_cast<int>(colour >> shift & 0xFF);
    lighter |= static_cast<Colour>(part + (255 - part) * steps / kSteps) << shift;
  }
  return lighter;
}

}  // namespace

double Contrast(Colour one, Colour other) {
  const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
  return (lighter + kFlare) / (darker + kFlare);
}

bool IsDark(Colour ground) { return Contrast(ground, 0xFFFFFF) > Contrast(ground, 0); }

Colour Readable(Colour ink, Colour ground) {
  if (!IsDark(ground)) return ink;
  int steps = 0;
  while (steps < kSteps && Contrast(Lightened(ink, steps), ground) < kTextContrast) ++steps;
  return Lightened(ink, steps);
}

}  // namespace tarvo
