#pragma once

#include <windows.h>

#include "platform/windows/handle_windows.h"
#include "toolkit/control.h"

namespace tarvo {

template <typename Handle>
struct GdiObjectTraits {
  using Value = Handle;
  static bool IsNone(Value value) { return value == nullptr; }
  static void Close(Value value) { DeleteObject(value); }
};

using Pen = UniqueHandle<GdiObjectTraits<HPEN>>;
using Brush = UniqueHandle<GdiObjectTraits<HBRUSH>>;
using Font = UniqueHandle<GdiObjectTraits<HFONT>>;
using Bitmap = UniqueHandle<GdiObjectTraits<HBITMAP>>;
using Region = UniqueHandle<GdiObjectTraits<HRGN>>;

struct MemoryContextTraits {
  using Value = HDC;
  static bool IsNone(Value value) { return value == nullptr; }
  static void Close(Value value) { DeleteDC(value); }
};

using MemoryContext = UniqueHandle<MemoryContextTraits>;

/// The device context of the whole screen.
class ScreenContext {
 public:
  ScreenContext() = default;
  ~ScreenContext() { ReleaseDC(nullptr, context_); }
  ScreenContext(const ScreenContext&) = delete;
  ScreenContext& operator=(const ScreenContext&) = delete;

  HDC Get() const { return context_; }

 private:
  HDC context_ = GetDC(nullptr);
};

/// Keeps a pen, brush, font or bitmap selected into a device context; its destructor selects the
/// previous one again. Context and object must outlive it.
class Selected {
 public:
  Selected(HDC context, HGDIOBJ object)
      : context_(context), before_(SelectObject(context, object)) {}
  ~Selected() { SelectObject(context_, before_); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  HDC context_;
  HGDIOBJ before_;
};

/// The answer to a window's WM_PAINT: while it lives, the window can be drawn on.
class Painting {
 public:
  explicit Painting(HWND window) : window_(window), target_(BeginPaint(window, &paint_)) {}
  ~Painting() { EndPaint(window_, &paint_); }
  Painting(const Painting&) = delete;
  Painting& operator=(const Painting&) = delete;

  HDC Target() const { return target_; }

 private:
  HWND window_;
  PAINTSTRUCT paint_{};
  HDC target_;
};

/// A picture that is drawn off the screen, so that nobody sees it half drawn.
class Canvas {
 public:
  /// As large as `extent`, in pixels, and for the colours of `screen`.
  Canvas(HDC screen, SIZE extent)
      : screen_(screen),
        extent_(extent),
        context_(CreateCompatibleDC(screen)),
        bitmap_(CreateCompatibleBitmap(screen, extent.cx, extent.cy)),
        selected_(context_.Get(), bitmap_.Get()) {}

  HDC Target() const { return context_.Get(); }
  /// Puts the picture into the upper left corner of the screen that it was made for.
  void Show() const {
    BitBlt(screen_, 0, 0, extent_.cx, extent_.cy, context_.Get(), 0, 0, SRCCOPY);
  }

 private:
  HDC screen_;
  SIZE extent_;
  MemoryContext context_;
  Bitmap bitmap_;
  Selected selected_;
};

/// Fills an area with one colour.
inline void Fill(HDC target, const RECT& area, Colour colour) {
  SetDCBrushColor(target, colour);
  FillRect(target, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

/// Draws a frame of one pixel along the inside of an area's edges.
inline void DrawFrame(HDC target, const RECT& area, Colour colour) {
  SetDCBrushColor(target, colour);
  FrameRect(target, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

}  // namespace tarvo
