#include "toolkit/state_picture.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "form/status_colours.h"

namespace tarvo {
namespace {

constexpr Colour kGround = Rgb(240, 240, 240);
constexpr int kSize = 20;

std::uint32_t PixelAt(const std::vector<std::uint32_t>& picture, int x, int y) {
  return picture[static_cast<std::size_t>(y * kSize + x)];
}

constexpr LightState kStates[] = {LightState::Healthy, LightState::Trouble, LightState::NotWatched,
                                  LightState::Stopped};

std::vector<std::uint32_t> Drawn(LightState state) {
  return DrawLight(state, ColourOf(state), kGround, kSize);
}

TEST(LightState, HasAColourOfItsOwn) {
  EXPECT_EQ(ColourOf(LightState::Healthy), kHealthyLight);
  EXPECT_EQ(ColourOf(LightState::Trouble), kTroubleLight);
  EXPECT_EQ(ColourOf(LightState::NotWatched), kUnwatchedLight);
  EXPECT_EQ(ColourOf(LightState::Stopped), kStoppedLight);
}

TEST(LightState, HasWordsOfItsOwn) {
  const std::set<std::string> words = {WordsOf(LightState::Healthy), WordsOf(LightState::Trouble),
                                       WordsOf(LightState::NotWatched),
                                       WordsOf(LightState::Stopped)};
  EXPECT_EQ(words, (std::set<std::string>{"healthy", "trouble", "not watched", "stopped"}));
}

TEST(DrawLight, LeavesTheCornersToTheBackground) {
  for (const LightState state : kStates) {
    const auto picture = Drawn(state);
    ASSERT_EQ(picture.size(), static_cast<std::size_t>(kSize * kSize));
    for (const int corner : {0, kSize - 1, kSize * (kSize - 1), kSize * kSize - 1}) {
      EXPECT_EQ(picture[static_cast<std::size_t>(corner)], 0xF0F0F0U) << WordsOf(state);
    }
  }
}

TEST(DrawLight, ShowsItsColourInTheOrderOfAScreen) {
  EXPECT_EQ(PixelAt(Drawn(LightState::Healthy), 4, 7), 0x00C000U);
  EXPECT_EQ(PixelAt(Drawn(LightState::Trouble), 5, 10), 0xFF0000U);
  EXPECT_EQ(PixelAt(Drawn(LightState::Stopped), 3, 10), 0x808080U);
}

/// Drawn in one grey on one ground, what is dark still differs: nobody needs to see the colours.
TEST(DrawLight, TellsTheStatesApartByShapeAlone) {
  std::set<std::vector<bool>> shapes;
  for (const LightState state : kStates) {
    std::vector<bool> shape;
    for (const std::uint32_t pixel : Drawn(state)) {
      shape.push_back(pixel == 0xF0F0F0 || pixel == 0xFFFFFF);
    }
    shapes.insert(shape);
  }
  EXPECT_EQ(shapes.size(), 4U);
}

}  // namespace
}  // namespace tarvo
