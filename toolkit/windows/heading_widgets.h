#pragma once

#include <string>

#include "toolkit/windows/widget.h"

namespace tarvo {

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
