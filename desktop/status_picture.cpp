#include "desktop/status_picture.h"

#include <algorithm>
#include <array>
#include <utility>

#include "toolkit/state_picture.h"

namespace tarvo {
namespace {

constexpr MarkInks kInks = {kHealthyInk, kCheckInk, kTroubleInk, kUnwatchedInk};

/// Where the three marks are: the pixels of their upper left corners.
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
        picture.pixels[index] =
            MarkPixel(LightStateOf(states[kind]), kInks, places.mark, column, row);
      }
    }
  }
  return picture;
}

IconHandle StatusIcons::For(const AlarmStates& states) {
  const int size = icons_.NotificationSize();
  if (shown_ != 0 && states == states_ && size == size_) return shown_;
  icons_.Destroy(std::exchange(before_, 0));
  const IconHandle drawn = icons_.Create(DrawStatusPicture(states, size));
  if (drawn == 0) return shown_;
  before_ = std::exchange(shown_, drawn);
  states_ = states;
  size_ = size;
  return shown_;
}

StatusIcons::~StatusIcons() {
  icons_.Destroy(before_);
  icons_.Destroy(shown_);
}

}  // namespace tarvo
