#include "toolkit/windows/look.h"

#include <uxtheme.h>
#include <vsstyle.h>

#include "platform/windows/system_libraries.h"
#include "toolkit/windows/screens.h"

namespace tarvo {
namespace {

constexpr std::size_t kMostExtents = 500;

/// The calls of the theme library. A game server may bring a version of its own, so it must not be
/// in the import table. A system without it is a system without themes.
struct ThemeCalls {
  static constexpr char kLibrary[] = "uxtheme.dll";
  decltype(&::IsAppThemed) IsAppThemed =
      LateCall<decltype(&::IsAppThemed)>(kLibrary, "IsAppThemed");
  decltype(&::IsThemeActive) IsThemeActive =
      LateCall<decltype(&::IsThemeActive)>(kLibrary, "IsThemeActive");
  decltype(&::OpenThemeData) Open = LateCall<decltype(&::OpenThemeData)>(kLibrary, "OpenThemeData");
  decltype(&::DrawThemeBackground) DrawBackground =
      LateCall<decltype(&::DrawThemeBackground)>(kLibrary, "DrawThemeBackground");
  decltype(&::CloseThemeData) Close =
      LateCall<decltype(&::CloseThemeData)>(kLibrary, "CloseThemeData");

  bool Active() const {
    return IsAppThemed && IsThemeActive && Open && DrawBackground && Close && IsAppThemed() &&
           IsThemeActive();
  }
};

/// The colour of the inside of a tab page. Themes paint it in a colour of their own, which is no
/// system colour, so a piece of it is painted and sampled.
COLORREF TabPageColour(HWND window) {
  static const ThemeCalls themes;
  COLORREF colour = GetSysColor(COLOR_3DFACE);
  if (!themes.Active()) return colour;
  const HTHEME theme = themes.Open(window, L"TAB");
  const ScreenContext screen;
  const Canvas canvas(screen.Get(), {16, 16});
  const RECT whole = {0, 0, 16, 16};
  if (theme &&
      SUCCEEDED(themes.DrawBackground(theme, canvas.Target(), TABP_BODY, 0, &whole, nullptr))) {
    colour = GetPixel(canvas.Target(), 8, 8);
  }
  if (theme) themes.Close(theme);
  return colour;
}

}  // namespace

void Look::Renew(HWND window) {
  extents_.clear();
  dpi_ = DpiOf(window);
  fontRecord_ = MessageFontAt(dpi_);
  font_.Reset(CreateFontIndirectW(&fontRecord_));
  LOGFONTW bold = fontRecord_;
  bold.lfWeight = FW_BOLD;
  boldFont_.Reset(CreateFontIndirectW(&bold));
  pageColour_ = TabPageColour(window);
  pageBrush_.Reset(CreateSolidBrush(pageColour_));
}

/// A field draws its text 3 pixels under its upper edge at any resolution. With little more than
/// that at the lower edge its base line agrees with that of the text beside it, which is centred.
int Look::ControlHeight() const { return TextExtent("X").height + 6 + Px(2); }

Extent Look::TextExtent(const std::string& text, bool bold, bool plain) const {
  if (extents_.size() >= kMostExtents) extents_.clear();
  const auto [entry, isNew] = extents_.try_emplace(Measured(text, bold, plain));
  if (isNew) entry->second = Measure(text, bold, plain);
  return entry->second;
}

Extent Look::Measure(const std::string& text, bool bold, bool plain) const {
  const Selected font(measuring_.Get(), bold ? BoldFont() : Font());
  RECT box{};
  DrawTextA(measuring_.Get(), text.c_str(), static_cast<int>(text.size()), &box,
            DT_CALCRECT | DT_SINGLELINE | (plain ? DT_NOPREFIX : 0U));
  return {static_cast<int>(box.right), static_cast<int>(box.bottom)};
}

bool HighContrast() {
  HIGHCONTRASTA contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace tarvo
