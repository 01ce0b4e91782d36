#include "toolkit/window_place.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace tarvo {
namespace {

constexpr int kFarthest = 32767;  ///< Windows counts places in 16 bits here and there.
constexpr int kWidthToGrab = 48;  ///< Pixels of a title bar that a mouse can take.

int Common(int begin, int length, int otherBegin, int otherLength) {
  return std::min(begin + length, otherBegin + otherLength) - std::max(begin, otherBegin);
}

/// Removes the number at the start of the text and returns it; nothing when there is none in range.
std::optional<int> TakeNumber(std::string_view& text) {
  int number = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || number < -kFarthest || number > kFarthest) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
  return number;
}

}  // namespace

std::string TextOfPlace(const Place& place) {
  return std::to_string(place.left) + "," + std::to_string(place.top) + "," +
         std::to_string(place.width) + "," + std::to_string(place.height);
}

std::optional<Place> PlaceOfText(const std::string& text) {
  std::string_view rest = text;
  std::array<int, 4> numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    if (i > 0) {
      if (!rest.starts_with(',')) return std::nullopt;
      rest.remove_prefix(1);
    }
    const auto number = TakeNumber(rest);
    if (!number) return std::nullopt;
    numbers[i] = *number;
  }
  if (!rest.empty() || numbers[2] <= 0 || numbers[3] <= 0) return std::nullopt;
  return Place{numbers[0], numbers[1], numbers[2], numbers[3]};
}

bool WithinReach(const Place& window, int titleHeight, const std::vector<Place>& screens) {
  const int wanted = std::min(kWidthToGrab, window.width);
  return std::any_of(screens.begin(), screens.end(), [&](const Place& screen) {
    return Common(window.left, window.width, screen.left, screen.width) >= wanted &&
           window.top >= screen.top && window.top + titleHeight <= screen.top + screen.height;
  });
}

Place FittedInto(const Place& window, const Place& screen) {
  Place fitted = window;
  fitted.width = std::min(window.width, screen.width);
  fitted.height = std::min(window.height, screen.height);
  fitted.left = std::clamp(window.left, screen.left, screen.left + screen.width - fitted.width);
  fitted.top = std::clamp(window.top, screen.top, screen.top + screen.height - fitted.height);
  return fitted;
}

}  // namespace tarvo
