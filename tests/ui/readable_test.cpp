#include "ui/readable.h"

#include <gtest/gtest.h>

#include "ui/rich_text_view.h"
#include "ui/status_colours.h"

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

TEST(Readable, OnlyTheTableOfASourceChanges) {
  RichTextView view({kStampColour, kNoticeColour});
  view.Append({kStampColour, "stamp "});
  view.Append({kNoticeColour, "\\red0 {a}"});
  view.Append({0, "\r\n"});
  RichTextView lighter({Readable(kStampColour, kBlack), kNoticeColour});
  lighter.SetSource(WithReadableColours(view.Source(), kBlack));
  EXPECT_EQ(lighter.Text(), view.Text());
  EXPECT_NE(lighter.Source(), view.Source());
  EXPECT_EQ(WithReadableColours(view.Source(), kWhite), view.Source());
  const RichTextView empty({Readable(kStampColour, kBlack), kNoticeColour});
  EXPECT_EQ(lighter.Source().substr(0, empty.SourceLength() - 3),
            empty.Source().substr(0, empty.SourceLength() - 3));
}

TEST(Readable, ASourceWithoutATableStaysWhole) {
  EXPECT_EQ(WithReadableColours("", kBlack), "");
  EXPECT_EQ(WithReadableColours("{\\rtf1}", kBlack), "{\\rtf1}");
}

}  // namespace
}  // namespace tarvo
