#pragma once

#include <string>

#include "toolkit/windows/drawn_button.h"

namespace tarvo {

/// A button that shows its control's background colour. Its window text is the caption alone; the
/// access key is underlined in it where the caption has that letter.
///
/// The second press of a double click is ignored: it would undo what the first one did.
class StartButton : public DrawnButton {
 public:
  StartButton(Stage& stage, HWND parent, int id, CommandButton& button, std::string widest);
  Extent Natural() const override;
  void Draw(const DRAWITEMSTRUCT& item) override;

 protected:
  void Show() override;

 private:
  std::string widest_;
  Colour shown_ = 0;
};

}  // namespace tarvo
