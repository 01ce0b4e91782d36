#include "desktop/status_picture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "support/md5.h"
#include "tests/simulation/sim_notification_area.h"

namespace tarvo {
namespace {

/// The sizes that the shell asks for at 100, 125, 150, 175, 200, 250, 300 % and beyond.
constexpr int kSizes[] = {16, 20, 24, 28, 32, 40, 48, 64, 96};

std::vector<AlarmStates> AllStates() {
  std::vector<AlarmStates> all;
  for (int i = 0; i < 27; ++i) {
    all.push_back({{static_cast<AlarmState>(i / 9), static_cast<AlarmState>(i / 3 % 3),
                    static_cast<AlarmState>(i % 3)}});
  }
  return all;
}

std::string NameOfStates(const AlarmStates& states) {
  std::string name;
  for (AlarmState state : states) name += std::to_string(static_cast<int>(state));
  return name;
}

/// How much of a pixel is drawn, 0 to 255: what is left when nobody sees any colour.
int Shape(std::uint32_t pixel) { return static_cast<int>(pixel >> 24); }

/// Pixels whose cover differs by more than a third: those that an eye can tell.
int DifferenceOfShape(const Picture& a, const Picture& b) {
  int count = 0;
  for (std::size_t i = 0; i < a.pixels.size(); ++i) {
    count += std::abs(Shape(a.pixels[i]) - Shape(b.pixels[i])) > 85 ? 1 : 0;
  }
  return count;
}

double Linear(std::uint32_t part) {
  const double value = static_cast<double>(part & 0xFF) / 255;
  return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double Luminance(std::uint32_t ink) {
  return 0.2126 * Linear(ink >> 16) + 0.7152 * Linear(ink >> 8) + 0.0722 * Linear(ink);
}

double Contrast(std::uint32_t a, std::uint32_t b) {
  const double first = Luminance(a) + 0.05;
  const double second = Luminance(b) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

TEST(StatusPicture, AllCombinationsDifferByShapeAloneAtEverySize) {
  const auto all = AllStates();
  for (int size : kSizes) {
    std::vector<Picture> pictures;
    for (const AlarmStates& states : all) pictures.push_back(DrawStatusPicture(states, size));
    // A tenth of one mark's square: 5 of 49 pixels in the smallest picture.
    const int enough = size * size / 50;
    for (std::size_t i = 0; i < all.size(); ++i) {
      for (std::size_t j = 0; j < i; ++j) {
        EXPECT_GE(DifferenceOfShape(pictures[i], pictures[j]), enough)
            << NameOfStates(all[i]) << " and " << NameOfStates(all[j]) << " at " << size;
      }
    }
  }
}

TEST(StatusPicture, EveryInkStandsOutFromLightAndDarkTaskBars) {
  for (std::uint32_t ink : {kHealthyInk, kTroubleInk, kUnwatchedInk}) {
    for (std::uint32_t taskBar : {0xF3F3F3U, 0x1C1C1CU}) {
      EXPECT_GE(Contrast(ink, taskBar), 3.0) << std::hex << ink << " on " << taskBar;
    }
  }
  EXPECT_GE(Contrast(kCheckInk, kHealthyInk), 3.0);
}

TEST(StatusPicture, NothingIsCutAndTheMarksKeepApart) {
  for (int size = kSmallestPicture; size <= kLargestPicture; ++size) {
    const Picture picture =
        DrawStatusPicture({{AlarmState::Healthy, AlarmState::Healthy, AlarmState::Healthy}}, size);
    ASSERT_EQ(picture.size, size);
    ASSERT_EQ(picture.pixels.size(), static_cast<std::size_t>(size * size));
    const int middle = size / 2;
    // A clear column between Login and Char, and a clear row above Map.
    for (int row = 0; row < middle - 1; ++row) {
      ASSERT_EQ(Shape(picture.At(middle, row)), 0) << size << " row " << row;
    }
    for (int column = 0; column < size; ++column) {
      ASSERT_EQ(Shape(picture.At(column, middle)), 0) << size << " column " << column;
    }
    // Each corner of the outline that belongs to a mark is full somewhere near its middle.
    const int quarter = size / 4;
    for (const auto& [column, row] : {std::pair{quarter, quarter},
                                      {size - 1 - quarter, quarter},
                                      {middle, size - 1 - quarter}}) {
      ASSERT_EQ(Shape(picture.At(column, row)), 255) << size << " at " << column << "," << row;
    }
  }
}

TEST(StatusPicture, ADiscsOutlineIsSharp) {
  // Smooth edges, yet no more than a pixel wide: most of a disc is either full or clear.
  for (int size : kSizes) {
    const Picture picture =
        DrawStatusPicture({{AlarmState::Healthy, AlarmState::Healthy, AlarmState::Healthy}}, size);
    int full = 0;
    int between = 0;
    for (std::uint32_t pixel : picture.pixels) {
      full += Shape(pixel) == 255 ? 1 : 0;
      between += Shape(pixel) > 0 && Shape(pixel) < 255 ? 1 : 0;
    }
    EXPECT_GT(full, between) << size;
  }
}

TEST(StatusPicture, TheCheckMarkAppearsWhereItCanBeRead) {
  const auto hasWhite = [](int size) {
    const Picture picture = DrawStatusPicture(
        {{AlarmState::Healthy, AlarmState::Trouble, AlarmState::NotWatched}}, size);
    return std::any_of(picture.pixels.begin(), picture.pixels.end(),
                       [](std::uint32_t pixel) { return (pixel & 0xFFFFFF) > 0xF0F0F0; });
  };
  EXPECT_FALSE(hasWhite(16));
  EXPECT_FALSE(hasWhite(20));
  for (int size : {24, 32, 48, 96}) EXPECT_TRUE(hasWhite(size)) << size;
}

/// The digest of all 27 pictures of a size, each pixel as its four bytes, alpha first.
std::string DigestOfPictures(int size) {
  std::string bytes;
  for (const AlarmStates& states : AllStates()) {
    for (std::uint32_t pixel : DrawStatusPicture(states, size).pixels) {
      for (int shift : {24, 16, 8, 0}) bytes += static_cast<char>(pixel >> shift & 0xFF);
    }
  }
  return clsMD5().DigestStrToHexStr(bytes);
}

// These pictures were looked at: scripts/status-picture-sheet.sh draws them large. Whoever changes
// them looks again, and then puts the new digests here.
TEST(StatusPicture, EveryPixelIsAsItWasApproved) {
  const struct {
    int size;
    const char* digest;
  } approved[] = {
      {16, "049A2116FD4CC03270B5EA16D0286B28"}, {20, "355F527CC98FEC32A1AC36A5314992EE"},
      {24, "9F53987118712489FE5F9C48C24BEE24"}, {25, "58F447FD138C173E4CF8C475F0CB14F6"},
      {32, "DCE02B702510C8A2F7DB879095765983"}, {48, "846652359EC4C5353B6E6C08B38EA2BD"},
      {61, "80722291521C714320D67DBDB8C5E1B7"}};
  for (const auto& one : approved) EXPECT_EQ(DigestOfPictures(one.size), one.digest) << one.size;
}

TEST(StatusPicture, TheMarksKeepTheirPlacesAtEverySize) {
  std::string
      edges;  // Of each size: where a row and a column through the marks begin and end them.
  for (int size = kSmallestPicture; size <= kLargestPicture; ++size) {
    const Picture picture =
        DrawStatusPicture({{AlarmState::Healthy, AlarmState::Healthy, AlarmState::Healthy}}, size);
    for (int i = 1; i < size; ++i) {
      const int across[] = {Shape(picture.At(i - 1, size / 4)), Shape(picture.At(i, size / 4))};
      const int down[] = {Shape(picture.At(size / 3, i - 1)), Shape(picture.At(size / 3, i))};
      if ((across[0] == 0) != (across[1] == 0)) edges += "x" + std::to_string(i);
      if ((down[0] == 0) != (down[1] == 0)) edges += "y" + std::to_string(i);
    }
  }
  EXPECT_EQ(clsMD5().DigestStrToHexStr(edges), "8122E056C94A4F0D25D033BCF22C2137");
}

TEST(StatusPicture, SizesOutsideTheLimitsAreBroughtWithin) {
  const AlarmStates states = AllStates()[5];
  for (int size : {-1, 0, 1, 15}) EXPECT_EQ(DrawStatusPicture(states, size).size, 16) << size;
  for (int size : {97, 100000}) EXPECT_EQ(DrawStatusPicture(states, size).size, 96) << size;
}

TEST(StatusIcons, TenThousandChangesLeaveNoMoreThanTheOneBesideTheShownOne) {
  SimIcons system;
  const auto all = AllStates();
  {
    StatusIcons icons(system);
    IconHandle before = icons.For(all[26]);
    for (std::size_t i = 0; i < 10000; ++i) {
      const IconHandle icon = icons.For(all[i * 7 % all.size()]);
      ASSERT_EQ(system.alive, (std::set<IconHandle>{before, icon})) << i;
      before = icon;
    }
    EXPECT_EQ(system.made, 10001);
  }
  EXPECT_TRUE(system.alive.empty()) << "icons that outlive their owner";
}

TEST(StatusIcons, TheSamePictureIsDrawnOnce) {
  SimIcons system;
  StatusIcons icons(system);
  const IconHandle icon = icons.For(AllStates()[5]);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(icons.For(AllStates()[5]), icon);
  EXPECT_EQ(system.made, 1);
}

TEST(StatusIcons, AnotherSizeIsDrawnAnew) {
  SimIcons system;
  StatusIcons icons(system);
  const AlarmStates states = AllStates()[3];
  for (int size : {20, 48, 16}) {
    const IconHandle before = icons.For(states);
    system.size = size;
    EXPECT_NE(icons.For(states), before);
    EXPECT_EQ(system.last.size, size);
    EXPECT_LE(system.alive.size(), 2U);
  }
}

TEST(StatusIcons, ASystemWithoutRoomIsAskedAgain) {
  SimIcons system;
  StatusIcons icons(system);
  const AlarmStates states = AllStates()[0];
  system.roomForMore = false;
  EXPECT_EQ(icons.For(states), 0);
  system.roomForMore = true;
  EXPECT_NE(icons.For(states), 0);
}

TEST(StatusIcons, WithoutRoomForANewOneTheLastStays) {
  SimIcons system;
  StatusIcons icons(system);
  icons.For(AllStates()[0]);
  const IconHandle last = icons.For(AllStates()[1]);
  system.roomForMore = false;
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(icons.For(AllStates()[2]), last);
    EXPECT_TRUE(system.alive.contains(last));
  }
  system.roomForMore = true;
  EXPECT_NE(icons.For(AllStates()[2]), last);
}

}  // namespace
}  // namespace tarvo
