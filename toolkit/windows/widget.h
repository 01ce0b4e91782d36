#pragma once

#include <windows.h>

#include <string>

#include "toolkit/control.h"
#include "toolkit/windows/stage.h"

namespace tarvo {

/// One native child window. It belongs to its parent window and is destroyed with it; the object
/// belongs to the panel or frame that made it. All members are called on the thread of the event
/// loop.
///
/// A widget of a control mirrors that control: `Refresh` carries the control's state to the native
/// window, `Command` passes what the operator did to the control, as an event of the stage. The
/// control decides: a native window never changes its state by itself, or is set back to the
/// control's.
class Widget : public ControlMirror {
 public:
  ~Widget() override = default;
  Widget(const Widget&) = delete;
  Widget& operator=(const Widget&) = delete;

  HWND Window() const { return window_; }

  /// The size that shows all of it, in pixels at the look's resolution.
  virtual Extent Natural() const = 0;
  /// Takes over the fonts and measures of the look, which has changed.
  virtual void TakeLook();
  /// A notification of the native window to its parent.
  virtual void Command(int /*code*/) {}
  /// A scroll bar was moved: one of the SB_ codes, and the thumb's place for those that have one.
  virtual void Scrolled(int /*code*/, int /*position*/) {}
  /// Pixels that it extends beyond its columns on each side.
  virtual int Overhang() const { return 0; }
  /// Draws an owner-drawn window.
  virtual void Draw(const DRAWITEMSTRUCT& /*item*/) {}
  /// What its tool tip says at this moment; "" for no tool tip.
  virtual std::string Tip() const { return {}; }
  /// Whether its panel draws a frame around it, since it has no edge of its own.
  virtual bool Framed() const { return false; }
  /// Ends the mirroring, before the native window is destroyed.
  virtual void Detach() {}

  void Refresh(const Control& control) override;

  /// The access key that presses or focuses the widget, in lower case; 0 for none.
  char AccessKey() const { return accessKey_; }
  virtual void SetAccessKey(char key) { accessKey_ = key; }
  /// Does what the access key asks for.
  virtual void Access() { SetFocus(window_); }

  /// What the tool tip of a disabled control says instead of its usual text.
  void SetReasonWhenDisabled(std::string reason) { reasonWhenDisabled_ = std::move(reason); }
  const std::string& ReasonWhenDisabled() const { return reasonWhenDisabled_; }

  /// The widget of a native window; nullptr for a window that has none.
  static Widget* Of(HWND window);

 protected:
  explicit Widget(Stage& stage) : stage_(stage) {}
  /// Makes the native window, visible and without a size yet; once, in the derived constructor.
  void Create(HWND parent, const char* windowClass, const std::string& text, DWORD style,
              DWORD extendedStyle, int id);
  /// Has every message of the native window come to `Handle` first; once, after `Create`.
  void TakeMessages();
  /// Answers a message, or has the native control answer it, as here.
  virtual LRESULT Handle(UINT message, WPARAM w, LPARAM l);
  /// Carries the control's state, all but enabled, to the native window.
  virtual void Show() {}
  /// Sets the window's text if it differs, so that nothing is redrawn needlessly.
  void SetText(const std::string& text);

  Stage& stage_;

 private:
  static LRESULT CALLBACK TakeMessage(HWND window, UINT message, WPARAM w, LPARAM l) noexcept;

  HWND window_ = nullptr;
  WNDPROC native_ = nullptr;  ///< The control's own procedure, once messages are taken.
  char accessKey_ = 0;
  std::string reasonWhenDisabled_;
};

/// A widget that mirrors a control, which must outlive the mirroring. A derived constructor calls
/// `Create`, then `Attach`.
template <class ControlType>
class Mirror : public Widget {
 public:
  void Detach() override { control_.SetMirror(nullptr); }
  std::string Tip() const override {
    return !control_.Enabled() && !ReasonWhenDisabled().empty() ? ReasonWhenDisabled()
                                                                : control_.ToolTip();
  }

 protected:
  Mirror(Stage& stage, ControlType& control) : Widget(stage), control_(control) {}
  /// Begins the mirroring and shows the control's present state.
  void Attach() {
    control_.SetMirror(this);
    Refresh(control_);
  }

  ControlType& control_;
};

/// Whether a button's notification reports a press. Windows reports the second press of a double
/// click differently for options, owner-drawn buttons and notifying check boxes.
constexpr bool IsPress(int code) { return code == BN_CLICKED || code == BN_DBLCLK; }

/// The window's whole text.
std::string TextOf(HWND window);

}  // namespace tarvo
