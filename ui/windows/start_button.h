#pragma once

#include "ui/controls.h"
#include "ui/windows/widget.h"

namespace tarvo {

/// A button that shows its control's background colour. Its window text is the caption alone; the
/// access key is underlined in it where the caption has that letter.
///
/// The second press of a double click is left out: it would take back what the first one did.
class StartButton : public Mirror<CommandButton> {
 public:
  StartButton(Stage& stage, HWND parent, int id, CommandButton& button, std::string widest);
  ~StartButton() override;
  Extent Natural() const override;
  void Command(int code) override;
  void Draw(const DRAWITEMSTRUCT& item) override;
  void Access() override;

 protected:
  void Show() override;

 private:
  static LRESULT CALLBACK Track(HWND window, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                                DWORD_PTR self);
  void SetHot(bool hot);

  std::string widest_;
  Colour shown_ = 0;
  bool hot_ = false;  ///< The mouse is over it.
};

}  // namespace tarvo
