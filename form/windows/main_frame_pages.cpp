#include <windows.h>
// After windows.h, which it needs.
#include <commctrl.h>

#include "form/windows/main_frame.h"
#include "form/windows/pages.h"

namespace tarvo {
namespace {

template <auto kFill, auto kPage>
void Fill(Panel& panel, Form& form) {
  kFill(panel, form.*kPage);
}

/// In the order of their tabs.
constexpr void (*kFillers[])(Panel&, Form&) = {
    Fill<FillStatus, &Form::status>, Fill<FillServers, &Form::servers>,
    Fill<FillRandomizer, &Form::randomizer>, Fill<FillUpgrade, &Form::upgrade>};

LRESULT CALLBACK RefuseClose(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                             DWORD_PTR /*unused*/) noexcept {
  if (message == WM_CLOSE) return 0;
  if (message == WM_NCDESTROY) RemoveWindowSubclass(window, RefuseClose, id);
  return DefSubclassProc(window, message, w, l);
}

BOOL CALLBACK KeepOpen(HWND window, LPARAM /*unused*/) noexcept {
  if ((GetWindowLongPtrA(window, GWL_STYLE) & WS_CAPTION) != WS_CAPTION) {
    SetWindowSubclass(window, RefuseClose, 0, 0);
  }
  return TRUE;
}

/// A program that asks all our windows to close means the main one, which may refuse: tool tips and
/// the open halves of lists stay with it.
void KeepPopupsOpen() { EnumThreadWindows(GetCurrentThreadId(), KeepOpen, 0); }

}  // namespace

/// Shows the window already painted, with only the page that is visible.
void MainFrame::ShowFirst() {
  ShownPage();
  place_.KeepQuiet();
  ShowWindow(window_, SW_SHOW);
  UpdateWindow(window_);
}

Panel& MainFrame::Page(int index) {
  const auto place = static_cast<std::size_t>(index);
  std::unique_ptr<Panel>& page = pages_.at(place);
  if (!page) {
    page = std::make_unique<Panel>(stage_, window_, Panel::Ground::Page);
    kFillers[place](*page, form_);
    page->Occupy(pageRoom_);
    tabs_.SetPage(place, page->Window());
  }
  return *page;
}

/// One page at a time, so that the window answers in between.
void MainFrame::CompletePages() {
  const std::size_t page = completed_;
  if (page > pages_.size()) return;
  ++completed_;
  if (page == pages_.size()) return Complete();
  Page(static_cast<int>(page)).OfferTips();
  PostMessageA(window_, kCompletePagesMessage, 0, 0);
}

/// A page that needs more space than the window has gets it, as far as the screen allows.
void MainFrame::Complete() {
  header_.OfferTips();
  KeepPopupsOpen();
  const Extent needed = SmallestClient();
  if (arranged_.right < needed.width || arranged_.bottom < needed.height) {
    place_.Enlarge();
    Arrange();
  }
  stage_.Happens([this] {
    if (form_.frame.onComplete) form_.frame.onComplete();
  });
}

}  // namespace tarvo
