#pragma once

#include "toolkit/controls.h"
#include "toolkit/windows/widget.h"

namespace tarvo {

/// A list that shows several entries at once. Longer entries scroll sideways.
class ListBoxWidget : public Mirror<ListBox> {
 public:
  /// It is at least as high as `lines` entries, and wide enough for `widest`.
  ListBoxWidget(Stage& stage, HWND parent, int id, ListBox& list, int lines, std::string widest);
  Extent Natural() const override;
  void TakeLook() override;
  void Command(int code) override;

 protected:
  void Show() override;

 private:
  int Selection() const;
  void ShowItems();
  void MeasureItems();

  int lines_;
  std::string widest_;
  std::size_t shownRemovals_ = 0;
};

/// A horizontal scroll bar. Arrow keys, Page Up and Down, Home and End move it as the mouse does.
class ScrollWidget : public Mirror<ScrollBar> {
 public:
  /// Page Up and Page Down move it by `page`.
  ScrollWidget(Stage& stage, HWND parent, int id, ScrollBar& bar, int page);
  Extent Natural() const override;
  void Scrolled(int code, int position) override;

 protected:
  void Show() override;

 private:
  int Wanted(int code, int position) const;

  int page_;
};

}  // namespace tarvo
