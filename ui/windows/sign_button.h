#pragma once

#include <string>

#include "ui/controls.h"
#include "ui/windows/widget.h"

namespace tarvo {

/// A square button that bears a picture alone: a plus or a minus. Its window text, which is not
/// shown, is its name for screen readers.
class SignButton : public Mirror<CommandButton> {
 public:
  enum class Sign { Plus, Minus };
  SignButton(Stage& stage, HWND parent, int id, CommandButton& button, Sign sign,
             const std::string& name);
  Extent Natural() const override;
  void Command(int code) override;
  void Draw(const DRAWITEMSTRUCT& item) override;
  void Access() override;

 private:
  static LRESULT CALLBACK Track(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                                DWORD_PTR self);
  void SetHot(bool hot);
  void DrawSign(HDC target, RECT area, bool disabled) const;

  Sign sign_;
  bool hot_ = false;  ///< The mouse is over it.
};

}  // namespace tarvo
