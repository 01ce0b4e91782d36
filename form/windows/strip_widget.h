#pragma once

#include "toolkit/strip.h"
#include "toolkit/windows/painted_widget.h"

namespace tarvo {

/// A component's last hour as a row of bars, the newest at the right. The height of a bar says the
/// same as its colour: trouble is as high as the strip, healthy half as high, not watched is low,
/// stopped is a line at the bottom, unseen is empty. Any width will do. Its text is the strip in
/// words.
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
