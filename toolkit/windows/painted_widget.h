#pragma once

#include "platform/windows/window_class.h"
#include "toolkit/windows/drawing.h"
#include "toolkit/windows/widget.h"

namespace tarvo {

/// A widget that the program paints completely, its background included.
template <class ControlType>
class PaintedWidget : public Mirror<ControlType> {
 protected:
  /// `windowClass` names the kind of widget; `text` is what screen readers read.
  PaintedWidget(Stage& stage, HWND parent, int id, ControlType& control, const char* windowClass,
                const std::string& text)
      : Mirror<ControlType>(stage, control) {
    WNDCLASSEXA record = WindowClass(stage.instance, windowClass, Procedure);
    record.style = CS_HREDRAW | CS_VREDRAW;
    RegisterOnce(record);
    this->Create(parent, windowClass, text, 0, 0, id);
  }

  void Repaint() { InvalidateRect(this->Window(), nullptr, FALSE); }
  /// Draws the window's client area, wherever it is on `target`.
  virtual void Paint(HDC target) = 0;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept {
    auto* painted = static_cast<PaintedWidget*>(Widget::Of(window));
    if (painted && message == WM_PAINT) {
      painted->Paint(Painting(window).Target());
      return 0;
    }
    if (message == WM_ERASEBKGND) return 1;
    // Mouse moves go to the parent, as those over a text do, so that tool tips work alike for both.
    if (message == WM_NCHITTEST) return HTTRANSPARENT;
    return DefWindowProcA(window, message, w, l);
  }
};

}  // namespace tarvo
