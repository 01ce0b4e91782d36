#pragma once

#include "ui/controls.h"
#include "ui/windows/widget.h"

namespace tarvo {

/// A text box of one line. What the operator types goes to the control at each change; what the
/// control makes of it comes back when it differs.
class TextWidget : public Mirror<TextBox> {
 public:
  /// It is wide enough for `widest`.
  TextWidget(Stage& stage, HWND parent, int id, TextBox& box, std::string widest);
  Extent Natural() const override;
  void Command(int code) override;
  void Access() override;

 protected:
  void Show() override;

 private:
  void Typed();

  std::string widest_;
  std::size_t shownCaret_ = 0;
  bool typing_ = false;   ///< The operator's change is on its way: the control is shown after it.
  bool showing_ = false;  ///< The change of the native text is our own.
};

/// A drop-down list.
class ListWidget : public Mirror<DropDownList> {
 public:
  /// It is at least `smallest` wide at 100 %, and wide enough for its entries up to `largest`.
  ListWidget(Stage& stage, HWND parent, int id, DropDownList& list, int smallest, int largest);
  Extent Natural() const override;
  void TakeLook() override;
  void Command(int code) override;
  std::string Tip() const override;

 protected:
  void Show() override;

 private:
  int Selection() const;
  int WidestItem() const;
  void ShowItems();

  int smallest_;
  int largest_;
};

}  // namespace tarvo
