#include "form/light_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "form/status_colours.h"
#include "toolkit/supersampling.h"

namespace tarvo {
namespace {

constexpr double kBorder = 0.11;
constexpr double kRingWidth = 0.26;

struct Inks {
  Colour background;
  Colour border;
  Colour fill;
  Colour sign;
};

double DistanceToLine(Point p, Point a, Point b) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double along = ((p.x - a.x) * dx + (p.y - a.y) * dy) / (dx * dx + dy * dy);
  const double t = std::clamp(along, 0.0, 1.0);
  return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

bool OnSign(LightState state, Point p) {
  switch (state) {
    case LightState::Healthy:
      return DistanceToLine(p, {-0.42, 0.02}, {-0.12, 0.36}) < 0.14 ||
             DistanceToLine(p, {-0.12, 0.36}, {0.44, -0.34}) < 0.14;
    case LightState::Trouble:
      return DistanceToLine(p, {0, -0.46}, {0, 0.1}) < 0.13 || std::hypot(p.x, p.y - 0.46) < 0.14;
    case LightState::NotWatched:
      return std::abs(p.x) < 0.36 && std::abs(p.y) < 0.13;
    case LightState::Stopped:
      break;
  }
  return std::max(std::abs(p.x), std::abs(p.y)) < 0.34;
}

/// How deep a point lies inside the light's outline; negative outside.
double Depth(LightState state, Point p) {
  if (state == LightState::Trouble) return (1.0 - std::abs(p.x) - std::abs(p.y)) * 0.75;
  return 0.94 - std::hypot(p.x, p.y);
}

Colour InkAt(LightState state, const Inks& inks, Point p) {
  const double depth = Depth(state, p);
  if (depth < 0) return inks.background;
  if (depth < kBorder) return inks.border;
  if (OnSign(state, p)) return inks.sign;
  const bool hollow = state == LightState::NotWatched && depth > kBorder + kRingWidth;
  return hollow ? inks.background : inks.fill;
}

Colour Darker(Colour colour) {
  return Rgb((colour & 0xFF) * 5 / 9, (colour >> 8 & 0xFF) * 5 / 9, (colour >> 16 & 0xFF) * 5 / 9);
}

Inks InksOf(LightState state, Colour fill, Colour background) {
  const Colour white = Rgb(255, 255, 255);
  const Colour border = Darker(fill);
  return {background, border, fill, state == LightState::NotWatched ? border : white};
}

std::uint32_t Pixel(LightState state, const Inks& inks, int column, int row, int size) {
  std::array<unsigned, 3> sum{};
  for (int i = 0; i < kSamplesInPixel; ++i) {
    const Point p = SampleOf(column, row, i, size);
    const Colour ink = InkAt(state, inks, p);
    for (std::size_t part = 0; part < 3; ++part) sum[part] += ink >> (8 * part) & 0xFF;
  }
  constexpr unsigned kCount = kSamplesInPixel;
  return sum[0] / kCount << 16 | sum[1] / kCount << 8 | sum[2] / kCount;
}

}  // namespace

LightState LightStateOf(Colour fill) {
  if (fill == kHealthyLight) return LightState::Healthy;
  if (fill == kTroubleLight) return LightState::Trouble;
  if (fill == kStoppedLight) return LightState::Stopped;
  return LightState::NotWatched;
}

const char* WordsOf(LightState state) {
  switch (state) {
    case LightState::Healthy:
      return "healthy";
    case LightState::Trouble:
      return "trouble";
    case LightState::Stopped:
      return "stopped";
    case LightState::NotWatched:
      break;
  }
  return "not watched";
}

std::vector<std::uint32_t> DrawLight(Colour fill, Colour background, int size) {
  const LightState state = LightStateOf(fill);
  const Inks inks = InksOf(state, fill, background);
  std::vector<std::uint32_t> picture;
  for (int row = 0; row < size; ++row) {
    for (int column = 0; column < size; ++column) {
      picture.push_back(Pixel(state, inks, column, row, size));
    }
  }
  return picture;
}

}  // namespace tarvo
