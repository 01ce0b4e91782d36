#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "toolkit/grid.h"
#include "toolkit/windows/stage.h"
#include "toolkit/windows/tool_tips.h"
#include "toolkit/windows/widget.h"

namespace tarvo {

/// Where a widget is on its panel's grid; the members mean what they mean in `GridCell`.
struct Slot {
  int row = 0;
  int column = 0;
  int span = 1;
  bool fills = true;
  int rows = 1;
};

/// A part of a panel's grid that belongs together: a thin frame is drawn around it.
struct Card {
  int row = 0;
  int column = 0;
  int rows = 1;
  int columns = 1;
};

/// A native window that holds widgets on one grid: a page of the tab view, or what is around the
/// pages. It owns the widgets and routes what their windows report. The Tab key goes through the
/// widgets in the order in which they were added.
///
/// The native window belongs to `parent` and is destroyed with it; the stage must outlive the
/// panel. Whoever makes one describes its grid and adds its widgets, before it is shown. All on the
/// thread of the event loop.
class Panel final {
 public:
  enum class Ground { Window, Page };     ///< What it is on, and so its colour.
  static constexpr int kCardPadding = 8;  ///< At 100 %.

  Panel(Stage& stage, HWND parent, Ground ground);
  Panel(const Panel&) = delete;
  Panel& operator=(const Panel&) = delete;

  HWND Window() const { return window_; }
  /// The smallest size at which everything is seen whole, in pixels.
  Extent Smallest() const;
  /// Moves the panel to `area` of its parent, in pixels, and lays out its widgets.
  void Occupy(const RECT& area);
  void TakeLook();
  /// Makes the tool tips: the window can be seen and used without them.
  void OfferTips();
  /// Passes a mouse message of the loop to the tool tips.
  void Follow(const MSG& message) { tips_.Follow(message); }
  /// Ends the mirroring of all controls; to be called before the native window is destroyed.
  void Detach();
  /// Does what that access key (in lower case) asks for; false when no widget has it.
  bool Access(char key);

  /// Gaps in pixels at 100 %: before the first column and row, and before each that follows.
  void SetColumns(std::vector<Track> columns) { columns_ = std::move(columns); }
  void SetRows(std::vector<Track> rows) { rows_ = std::move(rows); }
  /// The space that stays free at the right and at the bottom, at 100 %.
  void SetMargin(Extent margin) { margin_ = margin; }
  /// The gaps around a card leave space for its frame, which is `kCardPadding` outside its cells.
  void AddCard(const Card& card) { cards_.push_back({card, {}}); }

  /// Makes a widget on the panel, from the stage, the panel's window and `arguments`. Without a
  /// slot it takes no space.
  template <class WidgetType, class... Arguments>
  WidgetType& Add(std::optional<Slot> slot, Arguments&&... arguments) {
    auto made =
        std::make_unique<WidgetType>(stage_, window_, std::forward<Arguments>(arguments)...);
    WidgetType& widget = *made;
    Keep(slot, std::move(made));
    return widget;
  }

 private:
  struct Entry {
    std::optional<Slot> slot;
    std::unique_ptr<Widget> widget;
  };

  struct PlacedCard {
    Card card;
    RECT frame;
  };

  static HWND CreatePanelWindow(HINSTANCE instance, HWND parent, bool shown);
  std::optional<LRESULT> Handle(UINT message, WPARAM w, LPARAM l);
  void Keep(std::optional<Slot> slot, std::unique_ptr<Widget> widget);
  Grid ToGrid() const;
  HBRUSH Brush() const;
  LRESULT ColourOfText(HDC target) const;
  void Commanded(HWND from, int code);
  /// Has everything drawn anew before long.
  void RedrawAll();
  void PlaceCards(const Grid& grid, const Place& area);
  void PaintCards(HDC target) const;
  void Paint();

  Stage& stage_;
  Ground ground_;
  HWND window_;
  ToolTips tips_;
  std::vector<Track> columns_;
  std::vector<Track> rows_;
  Extent margin_;
  std::vector<Entry> entries_;
  std::vector<PlacedCard> cards_;
};

}  // namespace tarvo
