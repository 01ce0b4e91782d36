#include "toolkit/grid.h"

#include <gtest/gtest.h>

namespace tarvo {
namespace {

void ExpectPlace(const Place& place, int left, int top, int width, int height) {
  EXPECT_EQ(place.left, left);
  EXPECT_EQ(place.top, top);
  EXPECT_EQ(place.width, width);
  EXPECT_EQ(place.height, height);
}

/// A label and a field in each of two rows; the fields take what room there is.
Grid TwoRows() {
  return {{{10}, {5, true}},
          {{4}, {6}},
          {{0, 0, 1, {30, 20}}, {0, 1, 1, {100, 20}}, {1, 0, 1, {50, 12}}, {1, 1, 1, {40, 20}}}};
}

TEST(Grid, IsAtLeastAsBigAsItsWidestCellsAndGaps) {
  const Extent smallest = SmallestSize(TwoRows());
  EXPECT_EQ(smallest.width, 10 + 50 + 5 + 100);
  EXPECT_EQ(smallest.height, 4 + 20 + 6 + 20);
}

TEST(Grid, ColumnsAlignAndTheStretchingOneTakesTheRoom) {
  const auto places = Arrange(TwoRows(), {100, 200, 265, 50});
  ExpectPlace(places[0], 110, 204, 50, 20);
  ExpectPlace(places[1], 165, 204, 200, 20);
  ExpectPlace(places[3], 165, 230, 200, 20);
}

TEST(Grid, ALowCellStandsInTheMiddleOfItsRow) {
  const auto places = Arrange(TwoRows(), {0, 0, 165, 50});
  EXPECT_EQ(places[2].top, 30 + 4);
  EXPECT_EQ(places[2].height, 12);
}

TEST(Grid, AStretchingRowIsFilledInHeight) {
  Grid grid = TwoRows();
  grid.rows[0].stretches = true;
  const auto places = Arrange(grid, {0, 0, 165, 150});
  EXPECT_EQ(places[0].height, 120);
  EXPECT_EQ(places[3].top, 4 + 120 + 6);
}

TEST(Grid, ACellThatDoesNotFillKeepsItsWidth) {
  Grid grid = TwoRows();
  grid.cells[3].fills = false;
  const auto places = Arrange(grid, {0, 0, 165, 50});
  EXPECT_EQ(places[3].width, 40);
}

TEST(Grid, ACellOverSeveralRowsIsAsHighAsTheyAre) {
  Grid grid = TwoRows();
  grid.cells[0].rows = 2;
  grid.cells.erase(grid.cells.begin() + 2);
  const auto places = Arrange(grid, {0, 0, 165, 50});
  ExpectPlace(places[0], 10, 4, 30, 20 + 6 + 20);
  ExpectPlace(places[2], 45, 30, 120, 20);
}

TEST(Grid, AHighCellHeightensTheRowThatStretchesOrTheLast) {
  Grid grid = TwoRows();
  grid.cells[0].rows = 2;
  grid.cells[0].natural.height = 100;
  EXPECT_EQ(SmallestSize(grid).height, 4 + 100);
  EXPECT_EQ(Arrange(grid, {0, 0, 165, 104})[3].top, 4 + 20 + 6 + (74 - 20) / 2);
  grid.rows[0].stretches = true;
  EXPECT_EQ(Arrange(grid, {0, 0, 165, 104})[1].height, 74);
}

TEST(Grid, AWideSpanWidensTheColumnThatStretches) {
  Grid grid = TwoRows();
  grid.cells[0] = {0, 0, 2, {300, 20}};
  grid.cells.erase(grid.cells.begin() + 1);
  EXPECT_EQ(SmallestSize(grid).width, 10 + 300);
  EXPECT_EQ(Arrange(grid, {0, 0, 310, 50})[1].width, 50) << "the labels' column stays";
}

TEST(Grid, AWideSpanWithoutAStretchingColumnWidensTheLast) {
  Grid grid = TwoRows();
  grid.columns[1].stretches = false;
  grid.cells[0] = {0, 0, 2, {300, 20}};
  EXPECT_EQ(Arrange(grid, {0, 0, 900, 50})[3].width, 300 - 50 - 5);
}

TEST(Grid, StretchingColumnsShareTheRoomToTheLastPixel) {
  const Grid grid = {{{0, true}, {0, true}, {0, true}},
                     {{0}},
                     {{0, 0, 1, {10, 1}}, {0, 1, 1, {10, 1}}, {0, 2, 1, {10, 1}}}};
  const auto places = Arrange(grid, {0, 0, 101, 1});
  EXPECT_EQ(places[2].left + places[2].width, 101);
}

TEST(Grid, TooSmallAnAreaLeavesEveryCellItsNaturalSize) {
  const auto places = Arrange(TwoRows(), {0, 0, 20, 10});
  EXPECT_EQ(places[1].width, 100);
  EXPECT_EQ(places[1].height, 20);
}

TEST(Grid, WithoutCellsOnlyItsGapsAreLeft) {
  const Extent smallest = SmallestSize({{{3}}, {{4}}, {}});
  EXPECT_EQ(smallest.width, 3);
  EXPECT_EQ(smallest.height, 4);
}

}  // namespace
}  // namespace tarvo
