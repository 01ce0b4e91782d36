#pragma once

#include <vector>

#include "toolkit/controls.h"
#include "toolkit/windows/widget.h"

namespace tarvo {

/// The tab strip with the frame around the pages. It leaves the inside of that frame free: the
/// pages are its siblings and follow it, so that the Tab key reaches the strip first and then the
/// page.
class TabWidget : public Mirror<TabView> {
 public:
  TabWidget(Stage& stage, HWND parent, int id, TabView& tabs,
            const std::vector<std::string>& titles);
  Extent Natural() const override;
  void TakeLook() override;

  /// Sets the page of a tab, counted from 0; it is visible while its tab is chosen.
  void SetPage(std::size_t tab, HWND page);
  /// Moves to `area` and returns the part of it that is for a page.
  RECT Occupy(const RECT& area);
  /// How much smaller than its area the part for a page is.
  Extent FrameExtent() const;

  /// The operator chose another tab.
  void Chosen();
  /// The operator steps to the next tab (1) or the previous one (-1), wrapping around.
  void Step(int direction);

 protected:
  void Show() override;

 private:
  int Count() const;
  std::vector<HWND> pages_;
};

}  // namespace tarvo
