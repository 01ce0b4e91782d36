#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace tarvo {

class Control;

/// Shows a control on a real screen. It is called after each change, within the call that makes it,
/// and reads the control again.
class ControlMirror {
 public:
  virtual ~ControlMirror() = default;
  virtual void Refresh(const Control& control) = 0;
};

/// The state common to all controls. A control knows no window: its mirror, a native widget, shows
/// this object and passes the operator's actions to it.
///
/// Convention for all controls: `Set...` is for the program and works on a disabled control too;
/// the operator's verbs (`Click`, `Type`, `Choose`) then do nothing. Events are plain functions set
/// by the owner of the form; an empty one is skipped. They are raised within the call that causes
/// them, after the mirror was refreshed, and may change any control, this one included.
///
/// All controls are used on one thread, that of the event loop. Their addresses are kept by mirrors
/// and events, so they are neither copied nor moved.
class Control {
 public:
  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);

  std::string ToolTip() const { return makeToolTip ? makeToolTip() : toolTip_; }
  void SetToolTip(std::string text);
  /// Makes the text at the moment at which it is asked for, when it changes by itself; in place of
  /// the one that was set.
  std::function<std::string()> makeToolTip;

  /// The one mirror; not owned. It must outlive the control or be removed with nullptr first.
  void SetMirror(ControlMirror* mirror) { mirror_ = mirror; }

 protected:
  ~Control() = default;
  void Changed() {
    if (mirror_) mirror_->Refresh(*this);
  }
  static void Raise(const std::function<void()>& event) {
    if (event) event();
  }

 private:
  bool enabled_ = true;
  std::string toolTip_;
  ControlMirror* mirror_ = nullptr;
};

/// A colour as Windows keeps it (COLORREF): 0x00BBGGRR.
using Colour = std::uint32_t;

constexpr Colour Rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
  return red | green << 8 | blue << 16;
}

}  // namespace tarvo
