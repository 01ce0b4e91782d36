// What is drawn with is given back, and what was selected before is selected again.
#include "toolkit/windows/drawing.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

class Drawing : public ::testing::Test {
 protected:
  COLORREF At(int x, int y) const { return GetPixel(canvas.Target(), x, y); }

  ScreenContext screen;
  Canvas canvas{screen.Get(), {20, 20}};
};

TEST_F(Drawing, AnObjectGoesWithItsOwner) {
  HPEN raw = nullptr;
  {
    const Pen pen(CreatePen(PS_SOLID, 1, RGB(1, 2, 3)));
    raw = pen.Get();
    EXPECT_EQ(GetObjectType(raw), static_cast<DWORD>(OBJ_PEN));
  }
  EXPECT_EQ(GetObjectType(raw), 0u);
}

TEST_F(Drawing, ASelectedObjectMakesRoomForTheOneBefore) {
  const HGDIOBJ before = GetCurrentObject(canvas.Target(), OBJ_PEN);
  const Pen pen(CreatePen(PS_SOLID, 1, RGB(1, 2, 3)));
  {
    const Selected selected(canvas.Target(), pen.Get());
    EXPECT_EQ(GetCurrentObject(canvas.Target(), OBJ_PEN), pen.Get());
  }
  EXPECT_EQ(GetCurrentObject(canvas.Target(), OBJ_PEN), before);
}

TEST_F(Drawing, AreasAreFilledAndFramedWithinTheirEdges) {
  Fill(canvas.Target(), {0, 0, 20, 20}, RGB(255, 255, 255));
  Fill(canvas.Target(), {5, 5, 10, 10}, RGB(255, 0, 0));
  DrawFrame(canvas.Target(), {12, 12, 18, 18}, RGB(0, 0, 255));
  EXPECT_EQ(At(4, 5), RGB(255, 255, 255));
  EXPECT_EQ(At(5, 5), RGB(255, 0, 0));
  EXPECT_EQ(At(9, 9), RGB(255, 0, 0));
  EXPECT_EQ(At(10, 10), RGB(255, 255, 255));
  EXPECT_EQ(At(12, 15), RGB(0, 0, 255));
  EXPECT_EQ(At(17, 17), RGB(0, 0, 255));
  EXPECT_EQ(At(13, 13), RGB(255, 255, 255));
}

TEST_F(Drawing, ACanvasIsSeenOnceItIsShown) {
  Fill(canvas.Target(), {0, 0, 20, 20}, RGB(255, 255, 255));
  const Canvas picture(canvas.Target(), {8, 8});
  Fill(picture.Target(), {0, 0, 8, 8}, RGB(0, 128, 0));
  EXPECT_EQ(At(7, 7), RGB(255, 255, 255));
  picture.Show();
  EXPECT_EQ(At(7, 7), RGB(0, 128, 0));
  EXPECT_EQ(At(8, 8), RGB(255, 255, 255));
}

}  // namespace
}  // namespace tarvo
