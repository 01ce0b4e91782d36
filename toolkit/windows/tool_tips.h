#pragma once

#include <windows.h>

#include <string>

#include "toolkit/windows/stage.h"

namespace tarvo {

class Widget;

/// The tool tips of one panel. The text is asked of the widget at the moment when it is shown, so a
/// control that is disabled meanwhile says why.
class ToolTips {
 public:
  ToolTips(Stage& stage, HWND panel) : stage_(stage), panel_(panel) {}

  /// Makes the native window; before this, nothing else does anything.
  void Open();
  bool IsOpen() const { return window_ != nullptr; }
  void Add(const Widget& widget);
  /// The widget has another place: disabled and text-only windows get no mouse messages of their
  /// own, so the panel watches their places for them.
  void Placed(const Widget& widget);
  void TakeLook();
  /// Looks at a message of the loop: the tips follow the mouse. Letting them watch each window by
  /// themselves would have every message of every control pass through them.
  void Follow(const MSG& message);
  /// Answers a notification that asks for a text. False for any other notification.
  bool Answer(NMHDR& notification);

 private:
  Stage& stage_;
  HWND panel_;
  HWND window_ = nullptr;
  std::string text_;  ///< What is shown at present; the system keeps only the pointer.
};

}  // namespace tarvo
