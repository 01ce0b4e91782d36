#pragma once

#include <vector>

#include "toolkit/controls.h"
#include "toolkit/windows/widget.h"

namespace tarvo {

/// The tab strip with the frame around the pages. It leaves the inside of that frame free: the
/// pages are its siblings behind it, so that the Tab key reaches the strip first and then the page.
class TabWidget : public Mirror<TabView> {
 public:
  TabWidget(Stage& stage, HWND parent, int id, TabView& tabs,
            const std::vector<std::string>& titles);
  Extent Natural() const override;
  void TakeLook() override;

  /// The page of a tab, counted from 0: as visible as its tab is chosen.
  void SetPage(std::size_t tab, HWND page);
  /// Takes its place and gives back the room for a page in it.
  RECT Occupy(const RECT& area);
  /// What `Occupy` takes away from a page's room.
  Extent FrameExtent() const;

  /// The operator chose another tab.
  void Chosen();
  /// The operator steps to the next tab (1) or the one before (-1), and around.
  void Step(int direction);

 protected:
  void Show() override;

 private:
  int Count() const;
  std::vector<HWND> pages_;
};

}  // namespace tarvo
