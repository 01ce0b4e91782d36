#pragma once

#include "toolkit/controls.h"
#include "toolkit/windows/field_widgets.h"
#include "toolkit/windows/label_widgets.h"

namespace tarvo {

/// A text box for a file's full path. A file can be dropped onto it, the first of several, also
/// when the launcher has more rights than the desktop that it is dragged from (Windows 7 and
/// newer). While it does not have the focus, a path that is too long for it is shown with an
/// ellipsis in its middle, and its tool tip shows it whole.
class PathWidget : public TextWidget {
 public:
  PathWidget(Stage& stage, HWND parent, int id, PathBox& box, std::string widest);
  std::string Tip() const override;

 protected:
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;
  void Show() override;

 private:
  bool Cut() const;
  void Paint();
  void Dropped(WPARAM drop);

  PathBox& box_;
};

/// A read-only path, with an ellipsis in its middle when it is too long; then its tool tip shows it
/// whole.
class PathLabelWidget : public LabelWidget {
 public:
  PathLabelWidget(Stage& stage, HWND parent, int id, Label& label, std::string widest);
};

/// An arrow to the right, drawn.
class ArrowWidget : public Widget {
 public:
  ArrowWidget(Stage& stage, HWND parent);
  Extent Natural() const override;
  void Draw(const DRAWITEMSTRUCT& item) override;
};

}  // namespace tarvo
