#include "toolkit/windows/panel.h"

#include "platform/windows/window_class.h"
#include "toolkit/windows/button_widgets.h"
#include "toolkit/windows/drawing.h"

namespace tarvo {
namespace {

constexpr char kClass[] = "TarvoPanel";
constexpr int kFramedGap = 4;  ///< Between a frame and the text in it, at 100 %.

/// The focused check box without text, on this panel; nothing else has its focus drawn for it.
const Widget* BareFocus(HWND panel) {
  const HWND focus = GetFocus();
  if (!IsChild(panel, focus)) return nullptr;
  const auto* check = dynamic_cast<const CheckWidget*>(Widget::Of(focus));
  return check && check->BoxAlone() ? check : nullptr;
}

RECT Around(HWND panel, HWND window, int aside, int above) {
  RECT place{};
  GetWindowRect(window, &place);
  MapWindowPoints(nullptr, panel, reinterpret_cast<POINT*>(&place), 2);
  InflateRect(&place, aside, above);
  return place;
}

/// Leaves space for the frame, and for a gap at the left.
void Shrink(Place& place, int gap) {
  place = {place.left + 1 + gap, place.top + 1, place.width - 2 - gap, place.height - 2};
}

}  // namespace

/// A page is shown when its tab is chosen, what is around the pages at once.
HWND Panel::CreatePanelWindow(HINSTANCE instance, HWND parent, bool shown) {
  RegisterOnce(WindowClass(instance, kClass, ProcedureOf<Panel, &Panel::Handle>));
  return CreateWindowExA(WS_EX_CONTROLPARENT, kClass, "",
                         WS_CHILD | WS_CLIPCHILDREN | (shown ? WS_VISIBLE : 0), 0, 0, 0, 0, parent,
                         nullptr, instance, nullptr);
}

Panel::Panel(Stage& stage, HWND parent, Ground ground)
    : stage_(stage),
      ground_(ground),
      window_(CreatePanelWindow(stage.instance, parent, ground == Ground::Window)),
      tips_(stage, window_) {
  SetOwner(window_, this);
}

void Panel::Keep(std::optional<Slot> slot, std::unique_ptr<Widget> widget) {
  widget->TakeLook();
  entries_.push_back({slot, std::move(widget)});
}

void Panel::OfferTips() {
  if (tips_.IsOpen()) return;
  tips_.Open();
  for (const Entry& entry : entries_) {
    if (!entry.slot) continue;
    tips_.Add(*entry.widget);
    tips_.Placed(*entry.widget);
  }
}

void Panel::Detach() {
  for (Entry& entry : entries_) entry.widget->Detach();
}

bool Panel::Access(char key) {
  for (Entry& entry : entries_) {
    if (entry.widget->AccessKey() != key) continue;
    entry.widget->Access();
    return true;
  }
  return false;
}

Grid Panel::ToGrid() const {
  Grid grid{columns_, rows_, {}};
  for (Track& track : grid.columns) track.gap = stage_.look.Px(track.gap);
  for (Track& track : grid.rows) track.gap = stage_.look.Px(track.gap);
  for (const Entry& entry : entries_) {
    if (!entry.slot) continue;
    const Slot& slot = *entry.slot;
    grid.cells.push_back(
        {slot.row, slot.column, slot.span, entry.widget->Natural(), slot.fills, slot.rows});
  }
  return grid;
}

Extent Panel::Smallest() const {
  const Extent inner = SmallestSize(ToGrid());
  return {inner.width + stage_.look.Px(margin_.width),
          inner.height + stage_.look.Px(margin_.height)};
}

void Panel::Occupy(const RECT& area) {
  const int width = static_cast<int>(area.right - area.left);
  const int height = static_cast<int>(area.bottom - area.top);
  MoveWindow(window_, area.left, area.top, width, height, TRUE);
  const Place inside{0, 0, width - stage_.look.Px(margin_.width),
                     height - stage_.look.Px(margin_.height)};
  const Grid grid = ToGrid();
  PlaceCards(grid, inside);
  std::vector<Place> places = Arrange(grid, inside);
  auto place = places.begin();
  for (Entry& entry : entries_) {
    if (!entry.slot) continue;
    place->left -= entry.widget->Overhang();
    place->width += 2 * entry.widget->Overhang();
    if (entry.widget->Framed()) Shrink(*place, stage_.look.Px(kFramedGap));
    // Nothing is drawn in between: a widget would take along what it has of another on its way.
    MoveWindow(entry.widget->Window(), place->left, place->top, place->width, place->height, FALSE);
    tips_.Placed(*entry.widget);
    ++place;
  }
  RedrawAll();
}

void Panel::TakeLook() {
  tips_.TakeLook();
  for (Entry& entry : entries_) entry.widget->TakeLook();
  RedrawAll();
}

void Panel::RedrawAll() {
  RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

HBRUSH Panel::Brush() const {
  return ground_ == Ground::Page ? stage_.look.PageBrush() : GetSysColorBrush(COLOR_3DFACE);
}

LRESULT Panel::ColourOfText(HDC target) const {
  SetBkMode(target, TRANSPARENT);
  // A disabled list fills the background of its text nevertheless.
  SetBkColor(target,
             ground_ == Ground::Page ? stage_.look.PageColour() : GetSysColor(COLOR_3DFACE));
  SetTextColor(target, GetSysColor(COLOR_BTNTEXT));
  return reinterpret_cast<LRESULT>(Brush());
}

void Panel::Commanded(HWND from, int code) {
  if (Widget* widget = Widget::Of(from)) widget->Command(code);
  const bool focusMoved = code == BN_SETFOCUS || code == BN_KILLFOCUS;
  const auto* check = dynamic_cast<const CheckWidget*>(Widget::Of(from));
  if (!focusMoved || !check || !check->BoxAlone()) return;
  const RECT ring = Around(window_, from, stage_.look.Px(3), 0);
  InvalidateRect(window_, &ring, TRUE);
}

void Panel::PlaceCards(const Grid& grid, const Place& area) {
  if (cards_.empty()) return;
  Grid framed = grid;
  for (const PlacedCard& placed : cards_) {
    const Card& card = placed.card;
    framed.cells.push_back({card.row, card.column, card.columns, {}, true, card.rows});
  }
  const std::vector<Place> places = Arrange(framed, area);
  const int padding = stage_.look.Px(kCardPadding);
  for (std::size_t i = 0; i < cards_.size(); ++i) {
    const Place& place = places[grid.cells.size() + i];
    cards_[i].frame = {place.left, place.top, place.left + place.width, place.top + place.height};
    InflateRect(&cards_[i].frame, padding, padding);
  }
}

void Panel::PaintCards(HDC target) const {
  const Selected pen(target, GetStockObject(DC_PEN));
  const Selected brush(target, GetStockObject(NULL_BRUSH));
  SetDCPenColor(target, GetSysColor(HighContrast() ? COLOR_BTNTEXT : COLOR_3DSHADOW));
  const int corner = stage_.look.Px(6);
  for (const PlacedCard& placed : cards_) {
    const RECT& frame = placed.frame;
    RoundRect(target, frame.left, frame.top, frame.right, frame.bottom, corner, corner);
  }
}

void Panel::Paint() {
  const Painting painting(window_);
  const HDC target = painting.Target();
  PaintCards(target);
  for (const Entry& entry : entries_) {
    if (!entry.widget->Framed()) continue;
    RECT frame = Around(window_, entry.widget->Window(), 1, 1);
    frame.left -= stage_.look.Px(kFramedGap);
    Fill(target, frame, GetSysColor(COLOR_WINDOW));
    DrawFrame(target, frame, GetSysColor(COLOR_3DSHADOW));
  }
  if (const Widget* focused = BareFocus(window_)) {
    const RECT ring = Around(window_, focused->Window(), stage_.look.Px(3), 0);
    SetTextColor(target, GetSysColor(COLOR_BTNTEXT));
    DrawFocusRect(target, &ring);
  }
}

std::optional<LRESULT> Panel::Handle(UINT message, WPARAM w, LPARAM l) {
  switch (message) {
    case WM_COMMAND:
      Commanded(reinterpret_cast<HWND>(l), HIWORD(w));
      return 0;
    case WM_NOTIFY:
      if (tips_.Answer(*reinterpret_cast<NMHDR*>(l))) return 0;
      break;
    case WM_DRAWITEM: {
      const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(l);
      if (Widget* widget = Widget::Of(item.hwndItem)) widget->Draw(item);
      return TRUE;
    }
    case WM_HSCROLL:
    case WM_VSCROLL:
      if (Widget* widget = Widget::Of(reinterpret_cast<HWND>(l))) {
        widget->Scrolled(LOWORD(w), HIWORD(w));
      }
      return 0;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      return ColourOfText(reinterpret_cast<HDC>(w));
    case WM_ERASEBKGND: {
      RECT area{};
      GetClientRect(window_, &area);
      FillRect(reinterpret_cast<HDC>(w), &area, Brush());
      return 1;
    }
    case WM_PAINT:
      Paint();
      return 0;
    default:
      break;
  }
  return std::nullopt;
}

}  // namespace tarvo
