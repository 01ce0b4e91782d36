#pragma once

#include "toolkit/controls.h"
#include "toolkit/windows/widget.h"

namespace tarvo {

/// A text box of one line. What the operator types goes to the control at each change; the text
/// that the control then has is shown when it differs. Caret, focus and each key that makes a
/// character go to the control too, which may reject the key.
class TextWidget : public Mirror<TextBox> {
 public:
  /// It is wide enough for `widest`.
  TextWidget(Stage& stage, HWND parent, int id, TextBox& box, std::string widest);
  Extent Natural() const override;
  void Command(int code) override;
  void Access() override;

 protected:
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;
  void Show() override;

 private:
  void Typed();
  void FocusMoves(bool gained, HWND other);
  void FocusMoved(bool gained);
  bool LetsThrough(char key);
  void TakeCaret();
  void NoteShownCaret();
  void ShowCaret();

  std::string widest_;
  std::size_t shownCaret_ = 0;
  std::size_t shownSelection_ = 0;
  bool entered_ = false;  ///< The operator is in the box, though he may have left the window.
  bool typing_ = false;   ///< The operator's change is passed on: the control is shown after it.
  bool showing_ = false;  ///< The native text is being changed by us.
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
  void PostSettled() const;
  int WidestItem() const;
  void ShowItems();
  void WidenOpenList();

  int smallest_;
  int largest_;
  std::size_t shownRemovals_ = 0;
};

}  // namespace tarvo
