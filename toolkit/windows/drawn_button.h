#pragma once

#include <string>

#include "toolkit/controls.h"
#include "toolkit/windows/button_face.h"
#include "toolkit/windows/widget.h"

namespace tarvo {

/// A button whose face the program draws.
class DrawnButton : public Mirror<CommandButton> {
 public:
  void Command(int code) override;
  void Access() override;
  /// Also kept as a property of the window, whose text does not show it.
  void SetAccessKey(char key) override;
  void Detach() override;

 protected:
  /// The window's text is its name for screen readers, whatever is drawn.
  DrawnButton(Stage& stage, HWND parent, int id, CommandButton& button, const std::string& name);
  /// The face at this moment, in the colours of a plain button without a caption.
  ButtonFace FaceNow(const DRAWITEMSTRUCT& item) const;

 private:
  LRESULT Track(UINT message, WPARAM w, LPARAM l);
  void SetHot(bool hot);

  bool hot_ = false;  ///< The mouse is over it.
};

}  // namespace tarvo
