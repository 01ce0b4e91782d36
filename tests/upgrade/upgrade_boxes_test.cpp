#include "upgrade/upgrade_boxes.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

struct Told {
  int code;
  const char* text;
  BoxIcon icon;
};

class UpgradeBoxes : public testing::Test {
 protected:
  UpgradeBoxes() {
    nPath[ComponentKind::Login].SetText("C:\\l.exe");
    nPath[ComponentKind::Char].SetText("C:\\c.exe");
    nPath[ComponentKind::Map].SetText("C:\\m.exe");
  }
  PerComponent<PathBox> nPath;
};

TEST_F(UpgradeBoxes, EachCodeHasItsTextAndIcon) {
  const Told table[] = {
      {0, "Upgrade was succesfull!", BoxIcon::Information},
      {1, "FROM and TO components are the same version, upgrade stopped!", BoxIcon::Information},
      {2, "Some components don't have changes, upgrade stopped!", BoxIcon::Information},
      {3, "Error, please check log Window!", BoxIcon::Information},
      {4, "Please, select the right new components (login, char, map)", BoxIcon::Information},
      {5, "Error, please select the right components.", BoxIcon::Critical},
      {6, "File missing: C:\\l.exe", BoxIcon::Critical},
      {7, "File missing: C:\\c.exe", BoxIcon::Critical},
      {8, "File missing: C:\\m.exe", BoxIcon::Critical},
  };
  for (const Told& told : table) {
    const auto box = UpgradeBoxFor(told.code, nPath);
    ASSERT_TRUE(box) << told.code;
    EXPECT_EQ(box->text, told.text) << told.code;
    EXPECT_EQ(box->icon, told.icon) << told.code;
    EXPECT_EQ(box->buttons, BoxButtons::Ok) << told.code;
  }
}

TEST_F(UpgradeBoxes, OtherCodesShowNothing) {
  for (int code : {-2147483647, -1, 9, 10, 100}) EXPECT_FALSE(UpgradeBoxFor(code, nPath)) << code;
}

TEST_F(UpgradeBoxes, TheQuestionIsOneOfYesAndNo) {
  const MessageBoxRequest question = UpgradeQuestion();
  EXPECT_EQ(question.text, "\xBFStop all to Upgrade?\r\nThe server components are running.");
  EXPECT_EQ(question.icon, BoxIcon::Question);
  EXPECT_EQ(question.buttons, BoxButtons::YesNo);
}

}  // namespace
}  // namespace tarvo
