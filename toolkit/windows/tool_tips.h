#pragma once

#include <windows.h>

#include <string>

#include "toolkit/windows/stage.h"

namespace tarvo {

class Widget;

/// The tool tips of one panel. A widget is asked for its text when the tip is shown, so a control
/// that was disabled meanwhile says why.
class ToolTips {
 public:
  ToolTips(Stage& stage, HWND panel) : stage_(stage), panel_(panel) {}

  /// Makes the native window; until then the other members do nothing.
  void Open();
  bool IsOpen() const { return window_ != nullptr; }
  void Add(const Widget& widget);
  /// The widget was moved: disabled and text-only windows get no mouse messages of their own, so
  /// the panel watches their places for them.
  void Placed(const Widget& widget);
  void TakeLook();
  /// Takes a message of the loop: the tips follow the mouse. If they watched each window by
  /// themselves, every message of every control would pass through them.
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
