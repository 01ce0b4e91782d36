#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <tuple>

#include "toolkit/grid.h"
#include "toolkit/windows/drawing.h"
#include "toolkit/windows/screens.h"

namespace tarvo {

/// Fonts and measures of the window at its present resolution, and the brush of its pages.
class Look {
 public:
  /// Reads the system's settings again. Fonts and brushes returned earlier are destroyed.
  void Renew(HWND window);

  int Dpi() const { return dpi_; }
  /// The pixels that `at100` pixels at 100 % are at this resolution.
  int Px(int at100) const { return MulDiv(at100, dpi_, kPlainDpi); }

  HFONT Font() const { return font_.Get(); }
  HFONT BoldFont() const { return boldFont_.Get(); }
  const LOGFONTW& FontRecord() const { return fontRecord_; }

  /// The one height of every field, check box and line of text in a row.
  int ControlHeight() const;
  /// The extent of a text in the font, or in the bold one; `&` marks an access key unless `plain`.
  Extent TextExtent(const std::string& text, bool bold = false, bool plain = false) const;

  /// The background of the controls on the pages and around them.
  HBRUSH PageBrush() const { return pageBrush_.Get(); }
  COLORREF PageColour() const { return pageColour_; }

 private:
  using Measured = std::tuple<std::string, bool, bool>;

  Extent Measure(const std::string& text, bool bold, bool plain) const;

  MemoryContext measuring_{CreateCompatibleDC(nullptr)};
  /// Captions are measured many times while pages are laid out, and the system is slow at it.
  mutable std::map<Measured, Extent> extents_;
  int dpi_ = kPlainDpi;
  LOGFONTW fontRecord_{};
  tarvo::Font font_;
  tarvo::Font boldFont_;
  Brush pageBrush_;
  COLORREF pageColour_ = 0;
};

/// True when the operator has asked the system for colours of high contrast.
bool HighContrast();

}  // namespace tarvo
