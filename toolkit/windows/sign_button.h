#pragma once

#include <string>

#include "toolkit/windows/drawn_button.h"

namespace tarvo {

/// A square button that shows only a picture: a plus or a minus. Its window text, which is not
/// shown, is its name for screen readers.
class SignButton : public DrawnButton {
 public:
  enum class Sign { Plus, Minus };
  SignButton(Stage& stage, HWND parent, int id, CommandButton& button, Sign sign,
             const std::string& name);
  Extent Natural() const override;
  void Command(int code) override;
  void Draw(const DRAWITEMSTRUCT& item) override;
  void Detach() override;

 private:
  void DrawSign(HDC target, RECT area, bool disabled) const;

  Sign sign_;
};

}  // namespace tarvo
