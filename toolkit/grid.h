#pragma once

#include <vector>

namespace tarvo {

/// Extents and places on a window, in its pixels.
struct Extent {
  int width = 0;
  int height = 0;
};

struct Place {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;

  bool operator==(const Place&) const = default;
};

/// A column or a row of a grid: the gap before it, and whether it takes the space that is left
/// over. Several tracks that stretch share that space equally.
struct Track {
  int gap = 0;
  bool stretches = false;
};

/// One item on the grid. It keeps its natural height, centred in its row, so that the base lines of
/// a row agree, unless the row stretches; over several rows it is as high as they are. It is as
/// wide as its columns, or keeps its natural width at their left edge.
struct GridCell {
  int row = 0;
  int column = 0;
  int span = 1;  ///< Columns that it spans, at least 1.
  Extent natural;
  bool fills = true;
  int rows = 1;  ///< Rows that it spans, at least 1.
};

/// Columns and rows that are as wide and high as their widest and highest cell. A cell that spans
/// several of them and needs more than they have widens the first of them that stretches, or the
/// last.
struct Grid {
  std::vector<Track> columns;
  std::vector<Track> rows;
  std::vector<GridCell> cells;  ///< Each within the columns and rows.
};

/// The smallest size in which every cell has its natural size.
Extent SmallestSize(const Grid& grid);

/// The place of every cell, in their order, when the grid fills `area`. An area below the smallest
/// size counts as that size.
std::vector<Place> Arrange(const Grid& grid, const Place& area);

}  // namespace tarvo
