#pragma once

#include <string>

#include "toolkit/controls.h"
#include "toolkit/windows/widget.h"

namespace tarvo {

/// A text that never changes: a caption beside a field, or the head of a column. It may mark an
/// access key, which acts on the control that is made next.
class CaptionWidget : public Widget {
 public:
  CaptionWidget(Stage& stage, HWND parent, const std::string& text);
  Extent Natural() const override;
};

/// The name of the control that is made next, for screen readers; it takes no space.
class HiddenNameWidget : public Widget {
 public:
  HiddenNameWidget(Stage& stage, HWND parent, const std::string& text);
  Extent Natural() const override { return {}; }
};

/// A label. A text that is too long for it ends with an ellipsis, and the tool tip shows it whole.
class LabelWidget : public Mirror<Label> {
 public:
  /// Its natural width is that of `widest`, whatever its caption is.
  LabelWidget(Stage& stage, HWND parent, int id, Label& label, std::string widest,
              bool bold = false);
  Extent Natural() const override;
  void TakeLook() override;
  std::string Tip() const override;

 protected:
  void Show() override { SetText(control_.Caption()); }

 private:
  std::string widest_;
  bool bold_;
};

/// The title of a card, in bold.
class HeadingWidget : public Widget {
 public:
  HeadingWidget(Stage& stage, HWND parent, const std::string& text);
  Extent Natural() const override;
  void TakeLook() override;
};

/// A warning over the whole width: dark text on amber, with the system's warning sign.
class WarningWidget : public Widget {
 public:
  WarningWidget(Stage& stage, HWND parent, const std::string& text);
  Extent Natural() const override;
  int Overhang() const override;
  void Draw(const DRAWITEMSTRUCT& item) override;
};

}  // namespace tarvo
