#include "toolkit/window_place.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

bool Same(const Place& a, const Place& b) { return TextOfPlace(a) == TextOfPlace(b); }

TEST(WindowPlaceText, ComesBackAsItWas) {
  for (const Place& place : {Place{10, 20, 760, 480}, Place{-1280, -300, 1, 1},
                             Place{32767, -32767, 32767, 32767}, Place{0, 0, 1, 1}}) {
    const auto read = PlaceOfText(TextOfPlace(place));
    ASSERT_TRUE(read) << TextOfPlace(place);
    EXPECT_TRUE(Same(*read, place)) << TextOfPlace(place);
  }
  EXPECT_EQ(TextOfPlace({-5, 6, 70, 80}), "-5,6,70,80");
}

TEST(WindowPlaceText, AnyOtherTextIsNoPlace) {
  for (const char* text : {"",
                           ",",
                           "1",
                           "1,2,3",
                           "1,2,3,",
                           "1,2,3,4,",
                           "1,2,3,4,5",
                           " 1,2,3,4",
                           "1, 2,3,4",
                           "1,2,3,4 ",
                           "1;2;3;4",
                           "a,b,c,d",
                           "1,2,3,x",
                           "1.5,2,3,4",
                           "+1,2,3,4",
                           "1,2,0,4",
                           "1,2,3,0",
                           "1,2,-3,4",
                           "32768,2,3,4",
                           "1,-32768,3,4",
                           "1,2,99999999999999999999,4",
                           "0x1,2,3,4"}) {
    EXPECT_FALSE(PlaceOfText(text)) << text;
  }
  EXPECT_FALSE(PlaceOfText(std::string("1,2,3,4\0", 8)));
  EXPECT_FALSE(PlaceOfText(std::string(100000, '9')));
}

TEST(WindowPlaceText, EveryTruncationIsNoPlaceOrAnother) {
  const std::string whole = "-12,34,760,480";
  for (std::size_t length = 0; length < whole.size(); ++length) {
    const auto place = PlaceOfText(whole.substr(0, length));
    if (place) {
      EXPECT_EQ(TextOfPlace(*place), whole.substr(0, length));
    }
  }
}

constexpr int kTitle = 30;

TEST(WindowPlaceReach, IsThereWhereTheTitleBarCanBeTaken) {
  const std::vector<Place> screens = {{0, 0, 1920, 1080}, {-1280, 200, 1280, 1024}};
  struct Row {
    Place window;
    bool wanted;
  };
  for (const Row& row :
       {Row{{100, 100, 760, 480}, true}, Row{{0, 0, 1920, 1080}, true},
        Row{{1920 - 48, 0, 760, 480}, true}, Row{{1920 - 47, 0, 760, 480}, false},
        Row{{-712, 0, 760, 480}, true},   // 48 pixels on the first screen.
        Row{{-713, 0, 760, 480}, false},  // Above the second one.
        Row{{-713, 200, 760, 480}, true}, Row{{100, -1, 760, 480}, false},
        Row{{100, 1050, 760, 480}, true}, Row{{100, 1051, 760, 480}, false},
        Row{{-1280, 300, 20, 480}, true},  // Narrower than a hand, but whole.
        Row{{5000, 5000, 760, 480}, false}, Row{{-32767, -32767, 32767, 32767}, false}}) {
    EXPECT_EQ(WithinReach(row.window, kTitle, screens), row.wanted) << TextOfPlace(row.window);
  }
}

TEST(WindowPlaceReach, IsNowhereWithoutAScreen) {
  EXPECT_FALSE(WithinReach({0, 0, 760, 480}, kTitle, {}));
}

TEST(WindowPlaceFit, MovesAndShrinksNoMoreThanItMust) {
  const Place screen = {100, 50, 1280, 1024};
  struct Row {
    Place window;
    Place wanted;
  };
  for (const Row& row :
       {Row{{200, 60, 760, 480}, {200, 60, 760, 480}}, Row{{0, 0, 760, 480}, {100, 50, 760, 480}},
        Row{{1300, 1000, 760, 480}, {620, 594, 760, 480}},
        Row{{200, 60, 1520, 960}, {100, 60, 1280, 960}},
        Row{{-5000, 5000, 9000, 9000}, {100, 50, 1280, 1024}}}) {
    EXPECT_TRUE(Same(FittedInto(row.window, screen), row.wanted))
        << TextOfPlace(row.window) << " became " << TextOfPlace(FittedInto(row.window, screen));
  }
}

}  // namespace
}  // namespace tarvo
