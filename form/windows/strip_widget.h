#pragma once

#include "toolkit/strip.h"
#include "toolkit/windows/painted_widget.h"

namespace tarvo {

/// A component's last hour as a row of bars, the newest at the right. The height of a bar tells as
/// much as its colour: trouble stands from top to bottom, healthy half as high, not watched is low,
/// stopped is a line at the bottom, and what nobody saw is empty. It takes
/// whatever width it is given. Its text is the strip in words.
class StripWidget : public PaintedWidget<StatusStrip> {
 public:
  StripWidget(Stage& stage, HWND parent, int id, StatusStrip& strip);
  Extent Natural() const override;
  void TakeLook() override { Repaint(); }

 protected:
  void Show() override;
  void Paint(HDC target) override;

 private:
  void PaintBars(HDC target, const RECT& inside) const;
  StripState StateAt(std::size_t x, std::size_t width) const;
};

}  // namespace tarvo
