#include "tests/randomizer/randomizer_story.h"

namespace tarvo {
namespace {

constexpr char kBackspace = 8;

class BoundBoxes : public RandomizerStory {
 protected:
  void SetUp() override { Load(); }
  void Press(TextBox& box, const std::string& keys) {
    for (char key : keys) box.PressKey(key);
  }
  std::string Typed(const std::string& keys) {
    std::string seen;
    for (TextBox* box : {&Page().rIni, &Page().rEnd}) {
      box->Type("");
      Press(*box, keys);
      if (box == &Page().rIni) seen = box->Text();
      EXPECT_EQ(box->Text(), seen);
    }
    return seen;
  }
};

TEST_F(BoundBoxes, TakeDigitsAndOneLeadingMinus) {
  EXPECT_EQ(Typed("0123456789"), "012345678");
  EXPECT_EQ(Typed("-15"), "-15");
  EXPECT_EQ(Typed("1-"), "1");
  EXPECT_EQ(Typed("--5"), "-5");
  EXPECT_EQ(Typed("1.5"), "15");
  EXPECT_EQ(Typed("1,5"), "15");
  EXPECT_EQ(Typed("+ a&HeE\xB2\xF1"), "");
}

TEST_F(BoundBoxes, TakeBackspaceAndNoOtherControlKey) {
  EXPECT_EQ(Typed(std::string("12") + kBackspace), "1");
  for (int key = 0; key < 256; ++key) {
    const char character = static_cast<char>(key);
    const bool taken = character == kBackspace || character == '-' || (key >= '0' && key <= '9');
    Page().rIni.Type("");
    EXPECT_EQ(Page().rIni.LetsThrough(character), taken) << key;
  }
}

TEST_F(BoundBoxes, TakeNoCharacterOutsideOf8Bits) {
  for (const TextBox* box :
       {&Page().rIni, &Page().rEnd, &Page().txt_Time[0], &Page().txt_Time[1]}) {
    EXPECT_FALSE(box->LetsThrough(TextBox::kOtherCharacter));
  }
  EXPECT_TRUE(Page().txtMxD[0].LetsThrough(TextBox::kOtherCharacter));
}

TEST_F(BoundBoxes, AMinusGoesBeforeTheTextOnly) {
  TextBox& box = Page().rIni;
  box.Type("15");
  box.MoveCaret(1);
  EXPECT_FALSE(box.LetsThrough('-'));
  box.MoveCaret(0);
  EXPECT_TRUE(box.LetsThrough('-'));
  box.PressKey('-');
  EXPECT_EQ(box.Text(), "-15");
  EXPECT_EQ(box.Caret(), 1u);
  box.MoveCaret(0);
  EXPECT_FALSE(box.LetsThrough('-'));
}

TEST_F(BoundBoxes, GettingTheFocusSelectsTheWholeText) {
  TextBox& box = Page().rEnd;
  box.Type("12345");
  box.GainFocus();
  EXPECT_EQ(box.Caret(), 0u);
  EXPECT_EQ(box.SelectionLength(), 5u);
  box.PressKey('7');
  EXPECT_EQ(box.Text(), "7");
}

TEST_F(BoundBoxes, LosingTheFocusLeavesTheNumberThatTheTextStartsWith) {
  const struct {
    const char* typed;
    const char* kept;
  } cases[] = {{"", "0"},
               {"-", "0"},
               {"007", "7"},
               {"-05", "-5"},
               {"12ab", "12"},
               {"ab", "0"},
               {"1.50", "1.5"},
               {"-0", "0"},
               {" 4 2", "42"},
               {"&HFF", "255"},
               {"999999999", "999999999"},
               {"1E3", "1000"},
               {"-.5", "-0.5"}};
  for (const auto& c : cases) {
    for (TextBox* box : {&Page().rIni, &Page().rEnd}) {
      box->Type(c.typed);
      box->LoseFocus();
      EXPECT_EQ(box->Text(), c.kept) << '"' << c.typed << '"';
    }
  }
}

TEST_F(BoundBoxes, TheCaretStaysButGoesBehindAZero) {
  TextBox& box = Page().rIni;
  box.Type("1234");
  box.MoveCaret(2);
  box.LoseFocus();
  EXPECT_EQ(box.Caret(), 2u);
  box.Type("0012");
  box.MoveCaret(4);
  box.LoseFocus();
  EXPECT_EQ(box.Text(), "12");
  EXPECT_EQ(box.Caret(), 2u);
  for (const char* nothing : {"", "-", "0", "000"}) {
    box.Type(nothing);
    box.LoseFocus();
    EXPECT_EQ(box.Text(), "0");
    EXPECT_EQ(box.Caret(), 1u);
  }
}

TEST_F(BoundBoxes, ADisabledBoxTakesNothing) {
  TextBox& box = Page().rIni;
  box.SetText("5");
  box.SetEnabled(false);
  box.PressKey('7');
  EXPECT_EQ(box.Text(), "5");
}

}  // namespace
}  // namespace tarvo
