#pragma once

#include <functional>
#include <string>
#include <utility>

namespace tarvo {

class Control;

/// What shows a control on a real screen. It is told of each change and reads the control again.
class ControlMirror {
 public:
  virtual ~ControlMirror() = default;
  virtual void Refresh(const Control& control) = 0;
};

/// The state that every control of the form has. A control knows no window: the native window of a
/// control mirrors this object and hands the operator's actions to it.
///
/// Convention for all controls: `Set...` is the program's own doing; the verbs of the operator
/// (`Click`, `Type`, `Choose`) do nothing while the control is disabled. Events are plain functions
/// that the owner of the form fills in; an empty one is skipped.
class Control {
 public:
  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);

  const std::string& ToolTip() const { return toolTip_; }
  void SetToolTip(std::string text);

  /// The mirror must outlive the control or be taken off with nullptr.
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

}  // namespace tarvo
