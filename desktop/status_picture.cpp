#include "desktop/status_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "toolkit/supersampling.h"

namespace tarvo {
namespace {

using Ink = std::uint32_t;

constexpr int kSmallestChecked = 10;  ///< Pixels of a mark in which a check mark can be told.

/// Where the three marks stand: the pixels of their left upper corners.
struct Places {
  int mark;  ///< Pixels across a mark.
  PerComponent<std::array<int, 2>> corner;
};

/// Two marks and the gap between them fill the picture, so far as whole pixels allow.
Places PlacesFor(int size) {
  const int gap = std::max(2, (size + 10) / 20 * 2);
  const int mark = (size - gap) / 2;
  const int first = (size - 2 * mark - gap) / 2;
  const int second = first + mark + gap;
  const int middle = (size - mark) / 2;
  return {mark, {{{{first, first}, {second, first}, {middle, second}}}}};
}

double DistanceToLine(Point p, Point a, Point b) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  const double along = ((p.x - a.x) * dx + (p.y - a.y) * dy) / (dx * dx + dy * dy);
  const double t = std::clamp(along, 0.0, 1.0);
  return std::sqrt((p.x - a.x - t * dx) * (p.x - a.x - t * dx) +
                   (p.y - a.y - t * dy) * (p.y - a.y - t * dy));
}

bool OnCheck(Point p) {
  constexpr double kHalfStroke = 0.15;
  constexpr Point kTurn = {-0.12, 0.38};
  return DistanceToLine(p, {-0.46, 0.04}, kTurn) < kHalfStroke ||
         DistanceToLine(p, kTurn, {0.48, -0.36}) < kHalfStroke;
}

bool OnCross(Point p) {
  constexpr double kHalfStroke = 0.28;
  constexpr double kEnd = 1 - kHalfStroke;
  return DistanceToLine(p, {-kEnd, -kEnd}, {kEnd, kEnd}) < kHalfStroke ||
         DistanceToLine(p, {-kEnd, kEnd}, {kEnd, -kEnd}) < kHalfStroke;
}

/// The ink at a point of a mark; nothing where the ground shows.
std::optional<Ink> InkAt(AlarmState state, Point p, bool withCheck) {
  constexpr double kHole = 0.56;
  const double radius = std::sqrt(p.x * p.x + p.y * p.y);
  switch (state) {
    case AlarmState::Healthy:
      if (radius > 1) return std::nullopt;
      return withCheck && OnCheck(p) ? kCheckInk : kHealthyInk;
    case AlarmState::Trouble:
      if (OnCross(p)) return kTroubleInk;
      return std::nullopt;
    case AlarmState::NotWatched:
      break;
  }
  if (radius > 1 || radius < kHole) return std::nullopt;
  return kUnwatchedInk;
}

/// The mean of a pixel's samples; its colour is that of the covered samples alone.
std::uint32_t PixelOf(AlarmState state, int mark, int column, int row) {
  std::array<unsigned, 3> sum{};
  unsigned covered = 0;
  for (int i = 0; i < kSamplesInPixel; ++i) {
    const Point p = SampleOf(column, row, i, mark);
    const auto ink = InkAt(state, p, mark >= kSmallestChecked);
    if (!ink) continue;
    ++covered;
    for (std::size_t part = 0; part < 3; ++part) sum[part] += *ink >> (8 * part) & 0xFF;
  }
  if (covered == 0) return 0;
  constexpr unsigned kCount = kSamplesInPixel;
  const unsigned alpha = (covered * 255 + kCount / 2) / kCount;
  return alpha << 24 | sum[2] / covered << 16 | sum[1] / covered << 8 | sum[0] / covered;
}

}  // namespace

Picture DrawStatusPicture(const AlarmStates& states, int size) {
  size = std::clamp(size, kSmallestPicture, kLargestPicture);
  const auto width = static_cast<std::size_t>(size);
  Picture picture{size, std::vector<std::uint32_t>(width * width)};
  const Places places = PlacesFor(size);
  for (ComponentKind kind : kComponents) {
    const auto [left, top] = places.corner[kind];
    for (int row = 0; row < places.mark; ++row) {
      for (int column = 0; column < places.mark; ++column) {
        const std::size_t index =
            static_cast<std::size_t>(top + row) * width + static_cast<std::size_t>(left + column);
        picture.pixels[index] = PixelOf(states[kind], places.mark, column, row);
      }
    }
  }
  return picture;
}

}  // namespace tarvo
