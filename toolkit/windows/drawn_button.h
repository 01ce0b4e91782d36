#pragma once

#include <windows.h>

#include <string>

#include "toolkit/control.h"
#include "toolkit/controls.h"
#include "toolkit/windows/widget.h"

namespace tarvo {

/// The appearance of a coloured button at one moment.
struct ButtonFace {
  std::string caption;
  char accessKey = 0;  ///< Underlined when the caption has it and `showKey` is set; lower case.
  bool showKey = false;
  Colour colour = 0;
  Colour behind = 0;  ///< The page's colour around the rounded corners.
  bool hot = false;
  bool pressed = false;
  bool focused = false;
  bool disabled = false;
  int corner = 4;  ///< Pixels.
};

/// The caption with `&` before the first occurrence of the access key, if it has that letter.
std::string Marked(std::string caption, char accessKey);

/// Draws the face in one step, so that nothing flickers. Under high contrast the system's own
/// colours replace the face's.
void DrawButtonFace(HDC target, const RECT& area, const ButtonFace& face, HFONT font);

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
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;

 private:
  void SetHot(bool hot);

  bool hot_ = false;  ///< The mouse is over it.
};

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
