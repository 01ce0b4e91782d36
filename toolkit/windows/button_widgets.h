#pragma once

#include "toolkit/controls.h"
#include "toolkit/windows/widget.h"

namespace tarvo {

/// A plain push button; its access key is underlined in its caption.
class ButtonWidget : public Mirror<CommandButton> {
 public:
  ButtonWidget(Stage& stage, HWND parent, int id, CommandButton& button);
  Extent Natural() const override;
  void Command(int code) override;
  void Access() override;
  void SetAccessKey(char key) override;

 protected:
  void Show() override;
};

/// A check box with its text beside it; or, in a table whose column head has the text, the box
/// alone; the text is then its name for screen readers.
class CheckWidget : public Mirror<CheckBox> {
 public:
  enum class Kind { WithText, BoxAlone };
  CheckWidget(Stage& stage, HWND parent, int id, CheckBox& box, const std::string& text,
              Kind kind = Kind::WithText);
  Extent Natural() const override;
  void Command(int code) override;
  void Access() override;
  /// A box without text has no mark of its focus; its panel draws one.
  bool BoxAlone() const { return kind_ == Kind::BoxAlone; }

 protected:
  void Show() override;

 private:
  Kind kind_;
};

/// An option that acts at each press, also when it is the selected one. It is pressed by a click,
/// by the space bar or by its access key; receiving the focus does not press it, and the Tab key
/// stops at every option.
class OptionWidget : public Mirror<OptionButton> {
 public:
  OptionWidget(Stage& stage, HWND parent, int id, OptionButton& option, const std::string& text);
  Extent Natural() const override;
  void Command(int code) override;
  void Access() override;

 protected:
  LRESULT Handle(UINT message, WPARAM w, LPARAM l) override;
  void Show() override;

 private:
  bool focusing_ = false;  ///< The native button reports a click because it gets the focus.
};

}  // namespace tarvo
