#include "toolkit/state_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

namespace tarvo {
namespace {

/// A place in a picture whose sides run from -1 to 1, whatever its size in pixels.
struct Point {
  double x;
  double y;
};

/// Samples across one pixel, so that edges come out smooth.
constexpr int kSamples = 4;
constexpr unsigned kSamplesInPixel = kSamples * kSamples;

constexpr double kBorder = 0.11;
constexpr double kRingWidth = 0.26;
constexpr int kSmallestChecked = 10;  ///< Pixels of a mark in which a check mark can be seen.

struct Inks {
  Colour background;
  Colour border;
  Colour fill;
  Colour sign;
};

/// The place of a pixel's sample, 0 to `kSamplesInPixel` - 1, in a picture of `size` pixels.
constexpr Point SampleOf(int column, int row, int sample, int size) {
  const double step = 2.0 / (size * kSamples);
  const int across = column * kSamples + sample % kSamples;
  const int down = row * kSamples + sample / kSamples;
  return {-1 + step * (across + 0.5), -1 + step * (down + 0.5)};
}

double DistanceToLine(Point p, Point a, Point b) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double along = ((p.x - a.x) * dx + (p.y - a.y) * dy) / (dx * dx + dy * dy);
  const double t = std::clamp(along, 0.0, 1.0);
  return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

bool OnCheck(Point p, Point begin, Point turn, Point end, double halfStroke) {
  return DistanceToLine(p, begin, turn) < halfStroke || DistanceToLine(p, turn, end) < halfStroke;
}

bool OnSign(LightState state, Point p) {
  switch (state) {
    case LightState::Healthy:
      return OnCheck(p, {-0.42, 0.02}, {-0.12, 0.36}, {0.44, -0.34}, 0.14);
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
  for (int i = 0; i < static_cast<int>(kSamplesInPixel); ++i) {
    const Point p = SampleOf(column, row, i, size);
    const Colour ink = InkAt(state, inks, p);
    for (std::size_t part = 0; part < 3; ++part) sum[part] += ink >> (8 * part) & 0xFF;
  }
  for (unsigned& part : sum) part /= kSamplesInPixel;
  return sum[0] << 16 | sum[1] << 8 | sum[2];
}

bool OnCross(Point p) {
  constexpr double kHalfStroke = 0.28;
  constexpr double kEnd = 1 - kHalfStroke;
  return DistanceToLine(p, {-kEnd, -kEnd}, {kEnd, kEnd}) < kHalfStroke ||
         DistanceToLine(p, {-kEnd, kEnd}, {kEnd, -kEnd}) < kHalfStroke;
}

/// The ink at a point of a mark; nothing where the ground shows.
std::optional<std::uint32_t> MarkInkAt(LightState state, const MarkInks& inks, Point p,
                                       bool withCheck) {
  constexpr double kHole = 0.56;
  const double radius = std::hypot(p.x, p.y);
  if (state == LightState::Trouble) {
    return OnCross(p) ? std::optional(inks.trouble) : std::nullopt;
  }
  if (radius > 1 || (state != LightState::Healthy && radius < kHole)) return std::nullopt;
  if (state != LightState::Healthy) return inks.other;
  const bool checked = withCheck && OnCheck(p, {-0.46, 0.04}, {-0.12, 0.38}, {0.48, -0.36}, 0.15);
  return checked ? inks.check : inks.healthy;
}

}  // namespace

std::vector<std::uint32_t> DrawLight(LightState state, Colour fill, Colour background, int size) {
  const Inks inks = InksOf(state, fill, background);
  std::vector<std::uint32_t> picture;
  for (int row = 0; row < size; ++row) {
    for (int column = 0; column < size; ++column) {
      picture.push_back(Pixel(state, inks, column, row, size));
    }
  }
  return picture;
}

std::uint32_t MarkPixel(LightState state, const MarkInks& inks, int size, int column, int row) {
  std::array<unsigned, 3> sum{};
  unsigned covered = 0;
  for (int i = 0; i < static_cast<int>(kSamplesInPixel); ++i) {
    const Point p = SampleOf(column, row, i, size);
    const auto ink = MarkInkAt(state, inks, p, size >= kSmallestChecked);
    if (!ink) continue;
    ++covered;
    for (std::size_t part = 0; part < 3; ++part) sum[part] += *ink >> (8 * part) & 0xFF;
  }
  if (covered == 0) return 0;
  const unsigned alpha = (covered * 255 + kSamplesInPixel / 2) / kSamplesInPixel;
  return alpha << 24 | sum[2] / covered << 16 | sum[1] / covered << 8 | sum[0] / covered;
}

}  // namespace tarvo
