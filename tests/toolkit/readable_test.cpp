#include "toolkit/readable.h"

#include <gtest/gtest.h>

#include "form/status_colours.h"

namespace tarvo {
namespace {

constexpr Colour kBlack = Rgb(0, 0, 0);
constexpr Colour kWhite = Rgb(255, 255, 255);
constexpr Colour kCharcoal = Rgb(48, 48, 48);

constexpr Colour kLogColours[] = {kStampColour, kInfoColour, kNoticeColour, kAlertColour,
                                  kExtraColour};

TEST(Readable, ContrastGoesFromOneToTwentyOne) {
  EXPECT_DOUBLE_EQ(Contrast(kWhite, kBlack), 21);
  EXPECT_DOUBLE_EQ(Contrast(kBlack, kWhite), 21);
  EXPECT_DOUBLE_EQ(Contrast(kAlertColour, kAlertColour), 1);
}

TEST(Readable, GreysAreDarkBelowTheMiddleOfTheEye) {
  EXPECT_TRUE(IsDark(kBlack));
  EXPECT_TRUE(IsDark(Rgb(117, 117, 117)));
  EXPECT_FALSE(IsDark(Rgb(118, 118, 118)));
  EXPECT_FALSE(IsDark(kWhite));
}

TEST(Readable, TheColoursStayAsTheyAreOnALightGround) {
  for (Colour colour : kLogColours) {
    EXPECT_EQ(Readable(colour, kWhite), colour);
    EXPECT_EQ(Readable(colour, Rgb(245, 245, 245)), colour);
  }
}

TEST(Readable, OnADarkGroundEveryColourOfTheLogIsReadAndKeepsItsHue) {
  for (Colour colour : kLogColours) {
    for (Colour ground : {kBlack, kCharcoal}) {
      const Colour ink = Readable(colour, ground);
      EXPECT_GE(Contrast(ink, ground), 4.5);
      EXPECT_NE(ink, kWhite);
    }
  }
  EXPECT_EQ(Readable(kNoticeColour, kBlack), kNoticeColour);
}

}  // namespace
}  // namespace tarvo
