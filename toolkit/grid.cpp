#include "toolkit/grid.h"

#include <algorithm>
#include <cstddef>

namespace tarvo {
namespace {

using Lengths = std::vector<int>;

std::size_t Index(int value) { return static_cast<std::size_t>(value); }

/// The length of tracks `first` to `first + count - 1` with the gaps between them.
int Span(const std::vector<Track>& tracks, const Lengths& lengths, int first, int count) {
  int length = 0;
  for (int i = first; i < first + count; ++i) {
    length += lengths[Index(i)] + (i > first ? tracks[Index(i)].gap : 0);
  }
  return length;
}

int Whole(const std::vector<Track>& tracks, const Lengths& lengths) {
  const int gap = tracks.empty() ? 0 : tracks.front().gap;
  return gap + Span(tracks, lengths, 0, static_cast<int>(tracks.size()));
}

/// What a cell needs of the tracks in one direction.
struct Need {
  int first;
  int count;
  int length;
};

int TrackToWiden(const std::vector<Track>& tracks, const Need& need) {
  for (int i = need.first; i < need.first + need.count; ++i) {
    if (tracks[Index(i)].stretches) return i;
  }
  return need.first + need.count - 1;
}

Lengths LengthsFor(const std::vector<Track>& tracks, const std::vector<Need>& needs) {
  Lengths lengths(tracks.size(), 0);
  for (const Need& need : needs) {
    int& length = lengths[Index(need.first)];
    if (need.count == 1) length = std::max(length, need.length);
  }
  for (const Need& need : needs) {
    const int missing = need.length - Span(tracks, lengths, need.first, need.count);
    if (missing > 0) lengths[Index(TrackToWiden(tracks, need))] += missing;
  }
  return lengths;
}

Lengths Widths(const Grid& grid) {
  std::vector<Need> needs;
  for (const GridCell& cell : grid.cells) {
    needs.push_back({cell.column, cell.span, cell.natural.width});
  }
  return LengthsFor(grid.columns, needs);
}

Lengths Heights(const Grid& grid) {
  std::vector<Need> needs;
  for (const GridCell& cell : grid.cells) {
    needs.push_back({cell.row, cell.rows, cell.natural.height});
  }
  return LengthsFor(grid.rows, needs);
}

void Stretch(const std::vector<Track>& tracks, Lengths& lengths, int room) {
  int left = room - Whole(tracks, lengths);
  auto takers = static_cast<int>(
      std::count_if(tracks.begin(), tracks.end(), [](const Track& t) { return t.stretches; }));
  for (std::size_t i = 0; i < tracks.size() && left > 0; ++i) {
    if (!tracks[i].stretches) continue;
    const int share = left / takers--;
    lengths[i] += share;
    left -= share;
  }
}

Lengths Starts(const std::vector<Track>& tracks, const Lengths& lengths, int start) {
  Lengths starts;
  for (std::size_t i = 0; i < tracks.size(); ++i) {
    start += tracks[i].gap;
    starts.push_back(start);
    start += lengths[i];
  }
  return starts;
}

}  // namespace

Extent SmallestSize(const Grid& grid) {
  return {Whole(grid.columns, Widths(grid)), Whole(grid.rows, Heights(grid))};
}

std::vector<Place> Arrange(const Grid& grid, const Place& area) {
  Lengths widths = Widths(grid);
  Lengths heights = Heights(grid);
  Stretch(grid.columns, widths, area.width);
  Stretch(grid.rows, heights, area.height);
  const Lengths lefts = Starts(grid.columns, widths, area.left);
  const Lengths tops = Starts(grid.rows, heights, area.top);

  std::vector<Place> places;
  for (const GridCell& cell : grid.cells) {
    const int room = Span(grid.columns, widths, cell.column, cell.span);
    const int rowHeight = Span(grid.rows, heights, cell.row, cell.rows);
    const bool whole = cell.rows > 1 || grid.rows[Index(cell.row)].stretches;
    const int height = whole ? rowHeight : cell.natural.height;
    places.push_back({lefts[Index(cell.column)], tops[Index(cell.row)] + (rowHeight - height) / 2,
                      cell.fills ? room : std::min(room, cell.natural.width), height});
  }
  return places;
}

}  // namespace tarvo
