#include "toolkit/controls.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/runtime_error.h"

namespace tarvo {
namespace {

class CountingMirror : public ControlMirror {
 public:
  void Refresh(const Control& control) override {
    ++refreshed;
    enabled = control.Enabled();
  }
  int refreshed = 0;
  bool enabled = true;
};

TEST(Control, TellsItsMirrorOfChangesAndOnlyOfChanges) {
  Label label;
  CountingMirror mirror;
  label.SetMirror(&mirror);
  label.SetCaption("a");
  label.SetCaption("a");
  EXPECT_EQ(mirror.refreshed, 1);
  label.SetEnabled(false);
  label.SetEnabled(false);
  EXPECT_EQ(mirror.refreshed, 2);
  EXPECT_FALSE(mirror.enabled);
  label.SetMirror(nullptr);
  label.SetCaption("b");
  EXPECT_EQ(mirror.refreshed, 2);
}

TEST(CommandButton, ADisabledButtonTakesNoClick) {
  CommandButton button;
  button.Click();  // Nobody listens, which is no fault.
  int clicks = 0;
  button.onClick = [&] { ++clicks; };
  button.Click();
  button.SetEnabled(false);
  button.Click();
  EXPECT_EQ(clicks, 1);
}

class CheckBoxTest : public testing::Test {
 protected:
  CheckBoxTest() {
    box.onChange = [this] { events += box.Checked() ? "on " : "off "; };
    box.onClick = [this] { events += "click "; };
  }
  CheckBox box;
  std::string events;
};

TEST_F(CheckBoxTest, AClickTurnsItOverAndTellsTheChangeFirst) {
  box.Click();
  EXPECT_TRUE(box.Checked());
  box.Click();
  EXPECT_FALSE(box.Checked());
  EXPECT_EQ(events, "on click off click ");
}

TEST_F(CheckBoxTest, TheProgramRaisesTheChangeAloneAndOnlyWhenThereIsOne) {
  box.SetChecked(false);
  EXPECT_EQ(events, "");
  box.SetChecked(true);
  box.SetChecked(true);
  EXPECT_EQ(events, "on ");
}

TEST_F(CheckBoxTest, ADisabledBoxCanBeSetButNotClicked) {
  box.SetEnabled(false);
  box.Click();
  EXPECT_EQ(events, "");
  box.SetChecked(true);
  EXPECT_EQ(events, "on ");
}

TEST(TextBox, TypingPutsTheCaretBehindTheTextAndSettingBeforeIt) {
  TextBox box;
  int changes = 0;
  box.onChange = [&] { ++changes; };
  box.Type("12");
  EXPECT_EQ(box.Caret(), 2U);
  box.SetText("345");
  EXPECT_EQ(box.Caret(), 0U);
  EXPECT_EQ(changes, 2);
  box.SetText("345");
  box.Type("345");
  EXPECT_EQ(changes, 2);
}

TEST(TextBox, TheCaretStaysWithinTheText) {
  TextBox box;
  box.SetText("123");
  box.SetCaret(2);
  EXPECT_EQ(box.Caret(), 2U);
  box.SetCaret(99);
  EXPECT_EQ(box.Caret(), 3U);
}

TEST(TextBox, AHandlerMayReplaceTheTextThatItIsToldOf) {
  TextBox box;
  box.onChange = [&] {
    if (box.Text() == "12a") box.SetText("12");
  };
  box.Type("12a");
  EXPECT_EQ(box.Text(), "12");
}

TEST(TextBox, ADisabledBoxTakesNoTyping) {
  TextBox box;
  box.SetEnabled(false);
  box.Type("1");
  EXPECT_EQ(box.Text(), "");
  box.SetText("2");
  EXPECT_EQ(box.Text(), "2");
}

class DropDownListTest : public testing::Test {
 protected:
  DropDownListTest() {
    list.AddItem("one");
    list.AddItem("two");
    list.onSelect = [this] { selected += list.Text() + " "; };
  }
  DropDownList list;
  std::string selected;
};

TEST_F(DropDownListTest, BeginsWithoutASelectionAndWithoutText) {
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(list.Text(), "");
}

TEST_F(DropDownListTest, AnyIndexOutsideButNoneIsAnError) {
  for (const int index : {-2, 2, 7, -2147483647}) {
    try {
      list.SetListIndex(index);
      ADD_FAILURE() << index << " was taken";
    } catch (const RuntimeError& fault) {
      EXPECT_EQ(fault.Number(), static_cast<int>(Fault::InvalidPropertyValue)) << index;
    }
    EXPECT_EQ(list.ListIndex(), -1) << index;
  }
  EXPECT_EQ(selected, "");
}

TEST_F(DropDownListTest, TheProgramsChoiceIsToldWhenItChanges) {
  list.SetListIndex(1);
  list.SetListIndex(1);
  EXPECT_EQ(selected, "two ");
  list.SetListIndex(-1);
  EXPECT_EQ(selected, "two  ");
  EXPECT_EQ(list.Text(), "");
}

TEST_F(DropDownListTest, TheOperatorsChoiceIsToldEachTime) {
  list.Choose(0);
  list.Choose(0);
  EXPECT_EQ(selected, "one one ");
}

TEST_F(DropDownListTest, TheOperatorCannotChooseWhatIsNotThere) {
  list.Choose(2);
  list.Choose(-1);
  list.SetEnabled(false);
  list.Choose(0);
  EXPECT_EQ(selected, "");
  EXPECT_EQ(list.ListIndex(), -1);
}

TEST(OptionGroup, SelectingOneDeselectsItsSiblings) {
  OptionGroup group;
  group[1].Select();
  group[2].Select();
  EXPECT_FALSE(group[0].Selected());
  EXPECT_FALSE(group[1].Selected());
  EXPECT_TRUE(group[2].Selected());
}

TEST(OptionGroup, EveryPressIsToldAndEachChangeOnce) {
  OptionGroup group;
  std::string events;
  for (std::size_t i = 0; i < OptionGroup::Size(); ++i) {
    group[i].onChange = [&events, i] { events += "change" + std::to_string(i) + " "; };
    group[i].onClick = [&events, i] { events += "click" + std::to_string(i) + " "; };
  }
  group[0].Click();
  group[0].Click();
  group[1].Click();
  group[2].Select();
  group[0].SetEnabled(false);
  group[0].Click();
  EXPECT_EQ(events, "change0 click0 click0 change1 click1 change2 ");
  EXPECT_TRUE(group[2].Selected());
}

TEST(OptionGroup, MirrorsOfBothOptionsSeeTheMove) {
  OptionGroup group;
  group[0].Select();
  CountingMirror left;
  CountingMirror taken;
  group[0].SetMirror(&left);
  group[1].SetMirror(&taken);
  group[1].Select();
  EXPECT_EQ(left.refreshed, 1);
  EXPECT_EQ(taken.refreshed, 1);
}

TEST(TabView, TellsItsMirrorWhenThePageChanges) {
  TabView tabs;
  CountingMirror mirror;
  tabs.SetMirror(&mirror);
  tabs.SetPage(0);
  EXPECT_EQ(mirror.refreshed, 0);
  tabs.SetPage(1);
  EXPECT_EQ(mirror.refreshed, 1);
  EXPECT_EQ(tabs.Page(), 1);
}

TEST(ListBox, KeepsItsSelectionWhenAnotherItemGoes) {
  ListBox list;
  list.AddItems({"a", "b", "c", "d"});
  list.SetListIndex(2);
  int selected = 0;
  list.onSelect = [&] { ++selected; };
  list.RemoveItem(3);
  EXPECT_EQ(list.Text(), "c");
  list.RemoveItem(0);
  EXPECT_EQ(list.Text(), "c");
  EXPECT_EQ(list.ListIndex(), 1);
  for (const int outside : {-1, 2}) list.RemoveItem(outside);
  EXPECT_EQ(list.Items(), (std::vector<std::string>{"b", "c"}));
  list.RemoveItem(1);
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_EQ(selected, 0);
}

TEST(ListBox, TakesOtherItemsInOneStep) {
  ListBox list;
  list.AddItems({"a", "b", "c"});
  list.SetListIndex(1);
  int selected = 0;
  list.onSelect = [&] { ++selected; };
  CountingMirror mirror;
  list.SetMirror(&mirror);
  const std::size_t removals = list.Removals();
  list.SetItems({"b", "c"});
  EXPECT_EQ(list.Items(), (std::vector<std::string>{"b", "c"}));
  EXPECT_EQ(list.ListIndex(), -1);
  EXPECT_GT(list.Removals(), removals);
  EXPECT_EQ(mirror.refreshed, 1);
  EXPECT_EQ(selected, 0);
}

}  // namespace
}  // namespace tarvo
