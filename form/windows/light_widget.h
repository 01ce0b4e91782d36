#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "toolkit/controls.h"
#include "toolkit/strip.h"
#include "toolkit/windows/painted_widget.h"

namespace tarvo {

/// A status light: a drawn window whose text is its component's name and state, and whose colour
/// other programs can read as the property `kLightColourProperty`.
class LightWidget : public PaintedWidget<Light> {
 public:
  LightWidget(Stage& stage, HWND parent, int id, Light& light, std::string name);
  Extent Natural() const override;
  void TakeLook() override;
  void Detach() override;
  /// Its component and state, and in a second line what the control's tool tip says.
  std::string Tip() const override;

 protected:
  void Show() override;
  void Paint(HDC target) override;

 private:
  std::string name_;
  std::vector<std::uint32_t> picture_;  ///< What was drawn last; empty when it is out of date.
  int size_ = 0;
};

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
