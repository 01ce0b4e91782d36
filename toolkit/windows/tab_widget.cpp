#include "toolkit/windows/tab_widget.h"

#include <commctrl.h>

#include "toolkit/windows/drawing.h"

namespace tarvo {

TabWidget::TabWidget(Stage& stage, HWND parent, int id, TabView& tabs,
                     const std::vector<std::string>& titles)
    : Mirror(stage, tabs), pages_(titles.size()) {
  Create(parent, WC_TABCONTROLA, "", WS_TABSTOP | WS_CLIPSIBLINGS, 0, id);
  for (const std::string& title : titles) {
    std::string text = title;
    TCITEMA item{};
    item.mask = TCIF_TEXT;
    item.pszText = text.data();
    SendMessageA(Window(), TCM_INSERTITEMA, static_cast<WPARAM>(Count()),
                 reinterpret_cast<LPARAM>(&item));
  }
  Attach();
}

void TabWidget::TakeLook() {
  const Look& look = stage_.look;
  SendMessageA(Window(), TCM_SETPADDING, 0, MAKELPARAM(look.Px(8), look.Px(2) + 1));
  Mirror::TakeLook();
}

int TabWidget::Count() const {
  return static_cast<int>(SendMessageA(Window(), TCM_GETITEMCOUNT, 0, 0));
}

Extent TabWidget::FrameExtent() const {
  RECT around{0, 0, 0, 0};
  SendMessageA(Window(), TCM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&around));
  return {static_cast<int>(around.right - around.left),
          static_cast<int>(around.bottom - around.top)};
}

Extent TabWidget::Natural() const { return FrameExtent(); }

void TabWidget::SetPage(std::size_t tab, HWND page) {
  pages_.at(tab) = page;
  Show();
}

RECT TabWidget::Occupy(const RECT& area) {
  MoveWindow(Window(), area.left, area.top, area.right - area.left, area.bottom - area.top, TRUE);
  RECT inside{0, 0, area.right - area.left, area.bottom - area.top};
  const HRGN frame = CreateRectRgnIndirect(&inside);
  SendMessageA(Window(), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&inside));
  const Region hole(CreateRectRgnIndirect(&inside));
  CombineRgn(frame, frame, hole.Get(), RGN_DIFF);
  SetWindowRgn(Window(), frame, TRUE);
  OffsetRect(&inside, area.left, area.top);
  return inside;
}

void TabWidget::Chosen() {
  const int page = static_cast<int>(SendMessageA(Window(), TCM_GETCURSEL, 0, 0));
  if (page < 0) return;
  stage_.Happens([this, page] { control_.SetPage(page); });
}

void TabWidget::Step(int direction) {
  const int page = (control_.Page() + direction + Count()) % Count();
  stage_.Happens([this, page] { control_.SetPage(page); });
}

void TabWidget::Show() {
  const int page = control_.Page();
  if (static_cast<int>(SendMessageA(Window(), TCM_GETCURSEL, 0, 0)) != page) {
    SendMessageA(Window(), TCM_SETCURSEL, static_cast<WPARAM>(page), 0);
  }
  for (std::size_t i = 0; i < pages_.size(); ++i) {
    if (!pages_[i]) continue;
    const bool shown = static_cast<int>(i) == page;
    // The focus must not stay on a page that is hidden.
    if (!shown && IsChild(pages_[i], GetFocus())) SetFocus(Window());
    ShowWindow(pages_[i], shown ? SW_SHOWNA : SW_HIDE);
  }
}

}  // namespace tarvo
