#include "toolkit/rich_text_view.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace tarvo {
namespace {

constexpr Colour kBlue = Rgb(0, 0, 255);
constexpr Colour kRed = Rgb(255, 0, 0);

int CountLineEnds(const std::string& source) {
  int count = 0;
  for (std::size_t at = 0; (at = source.find("\r\n", at)) != std::string::npos; at += 2) ++count;
  return count;
}

std::string LineOf(const std::string& source, int number) {
  std::size_t start = 0;
  for (int line = 0; line < number; ++line) start = source.find("\r\n", start) + 2;
  return source.substr(start, source.find("\r\n", start) - start);
}

class RecordingMirror : public RichTextMirror {
 public:
  void Appended(const ColouredText& piece) override { told.push_back("+" + piece.text); }
  void Replaced() override { told.push_back("="); }
  std::vector<std::string> told;
};

TEST(RichTextView, AnEmptyViewIsSixHeaderLinesAndTheClosingOne) {
  const RichTextView view({kBlue, kRed});
  EXPECT_EQ(CountLineEnds(view.Source()), RichTextView::kHeaderLines + 1);
  EXPECT_EQ(view.Source().substr(0, 6), "{\\rtf1");
  EXPECT_TRUE(view.Source().ends_with("\r\n}\r\n"));
  EXPECT_EQ(view.SourceLength(), view.Source().size());
  EXPECT_EQ(view.Text(), "");
}

TEST(RichTextView, TheHeaderNamesThePaletteInItsOrder) {
  const RichTextView view({kBlue, kRed});
  EXPECT_EQ(LineOf(view.Source(), 3), "\\red0\\green0\\blue255;\\red255\\green0\\blue0;}");
}

TEST(RichTextView, ALineOfTextIsOneSourceLineWithItsOwnColours) {
  RichTextView view({kBlue, kRed});
  view.Append({kBlue, "10:31: "});
  view.Append({kRed, "Ready!"});
  view.Append({kRed, "\r\n"});
  EXPECT_EQ(CountLineEnds(view.Source()), RichTextView::kHeaderLines + 2);
  EXPECT_EQ(LineOf(view.Source(), RichTextView::kHeaderLines), "\\cf1 10:31: \\cf2 Ready!\\par");
  EXPECT_EQ(view.Text(), "10:31: Ready!\r\n");
  EXPECT_EQ(view.SourceLength(), view.Source().size());
}

TEST(RichTextView, PiecesComeBackWithTheirColours) {
  RichTextView view({kBlue, kRed});
  view.Append({kBlue, "10:31: "});
  view.Append({kRed, "{Ready!\\}"});
  view.Append({kRed, "\r\n"});
  view.Append({0x123456, "42"});
  std::string told;
  for (const ColouredText& piece : view.Pieces()) {
    if (!piece.text.empty()) told += std::to_string(piece.colour) + "[" + piece.text + "]";
  }
  EXPECT_EQ(told,
            std::to_string(kBlue) + "[10:31: ]" + std::to_string(kRed) + "[{Ready!\\}\r\n]0[42]");
}

TEST(RichTextView, AnUnknownColourIsShownAsBlack) {
  RichTextView view({kBlue});
  view.Append({kRed, "x"});
  EXPECT_NE(view.Source().find("\\cf0 x"), std::string::npos);
}

TEST(RichTextView, AnyByteComesBackAsItWentIn) {
  for (int byte = 1; byte < 256; ++byte) {
    const std::string text = std::string("a") + static_cast<char>(byte) + "9 z";
    RichTextView view({kBlue});
    view.Append({kBlue, text});
    view.Append({kBlue, "\r\n"});
    EXPECT_EQ(view.Text(), text + "\r\n") << "byte " << byte;
    const std::string source = view.Source();
    EXPECT_TRUE(std::all_of(source.begin(), source.end(), [](char c) { return c > 0; }))
        << "the source is plain for byte " << byte;
  }
}

TEST(RichTextView, SignsOfTheSourceAreEscaped) {
  RichTextView view({kBlue});
  view.Append({kBlue, "{C:\\par}\xE9"});
  EXPECT_NE(view.Source().find("\\cf1 \\{C:\\\\par\\}\\'e9"), std::string::npos);
  EXPECT_EQ(view.Text(), "{C:\\par}\xE9");
}

TEST(RichTextView, TextThatLooksLikeControlWordsStaysText) {
  RichTextView view({kBlue});
  view.Append({kBlue, "\\cf2 \\'41 par {}"});
  EXPECT_EQ(view.Text(), "\\cf2 \\'41 par {}");
}

TEST(RichTextView, ALineThatIsTakenOutLeavesTheOthers) {
  RichTextView view({kBlue, kRed});
  for (const char* line : {"first", "second", "third"}) {
    view.Append({kBlue, "stamp: "});
    view.Append({kRed, line});
    view.Append({kRed, "\r\n"});
  }
  std::string source = view.Source();
  std::size_t start = 0;
  for (int line = 0; line < RichTextView::kHeaderLines; ++line) {
    start = source.find("\r\n", start) + 2;
  }
  source.erase(start, source.find("\r\n", start) + 2 - start);
  view.SetSource(source);
  EXPECT_EQ(view.Source(), source);
  EXPECT_EQ(view.Text(), "stamp: second\r\nstamp: third\r\n");
  view.Append({kBlue, "fourth\r\n"});
  EXPECT_EQ(view.Text(), "stamp: second\r\nstamp: third\r\nfourth\r\n");
}

TEST(RichTextView, AnyLineOfAPieceMayBeTakenOutAndTheOthersKeepItsColour) {
  RichTextView view({kBlue, kRed});
  view.Append({kBlue, "stamp: "});
  view.Append({kRed, "first\r\nsecond\r\nthird\r\n"});
  EXPECT_EQ(view.Text(), "stamp: first\r\nsecond\r\nthird\r\n");
  std::string source = view.Source();
  const std::size_t begin = source.find("\\cf1 stamp");
  source.erase(begin, source.find("\r\n", begin) + 2 - begin);
  view.SetSource(source);
  EXPECT_EQ(view.Text(), "second\r\nthird\r\n");
  for (const ColouredText& piece : view.Pieces()) {
    if (piece.text.empty()) continue;
    EXPECT_EQ(piece.colour, kRed) << piece.text;
  }
  EXPECT_TRUE(view.Source().ends_with("\\cf2 third\\par\r\n}\r\n")) << "nothing behind the last";
}

TEST(RichTextView, TheMirrorIsToldWhatHappened) {
  RichTextView view({kBlue});
  RecordingMirror mirror;
  view.SetRichTextMirror(&mirror);
  view.Append({kBlue, "one"});
  view.SetSource(view.Source());
  view.SetRichTextMirror(nullptr);
  view.Append({kBlue, "two"});
  EXPECT_EQ(mirror.told, (std::vector<std::string>{"+one", "="}));
}

TEST(RichTextView, ABrokenSourceIsReadWithoutHarm) {
  for (const char* source :
       {"", "}", "\\", "\\'", "\\'4", "{\\rtf1", "a\r\nb\r\nc\r\nd\r\ne\r\nf\r\n\\",
        "a\r\nb\r\nc\r\nd\r\ne\r\nf\r\n\\'zz"}) {
    RichTextView view({kBlue});
    view.SetSource(source);
    EXPECT_LE(view.Text().size(), std::string(source).size()) << source;
  }
}

}  // namespace
}  // namespace tarvo
