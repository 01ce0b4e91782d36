#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "toolkit/controls.h"
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

}  // namespace tarvo
