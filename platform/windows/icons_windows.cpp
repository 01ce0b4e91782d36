#include "platform/windows/icons_windows.h"

#include <windows.h>

#include <algorithm>

#include "platform/windows/system_libraries.h"

namespace tarvo {
namespace {

constexpr DWORD kIconFormat = 0x00030000;
constexpr std::uint32_t kTransparent = 0;

/// The resolution of the screen that holds the task bar; 0 where the system knows but one for all.
int TaskBarDpi() {
  const HWND taskBar = FindWindowA("Shell_TrayWnd", nullptr);
  return taskBar ? MonitorDpiOf(taskBar) : 0;
}

/// Bytes in a row of the mask: one bit a pixel, rows of whole 32-bit words.
std::size_t MaskRowLength(int size) { return static_cast<std::size_t>((size + 31) / 32) * 4; }

/// Bits are set where the picture is transparent; systems that blend do without it.
std::vector<unsigned char> MaskOf(const Picture& picture) {
  const std::size_t length = MaskRowLength(picture.size);
  std::vector<unsigned char> mask(length * static_cast<std::size_t>(picture.size));
  for (int row = 0; row < picture.size; ++row) {
    const std::size_t begin = static_cast<std::size_t>(picture.size - 1 - row) * length;
    for (int column = 0; column < picture.size; ++column) {
      if (picture.At(column, row) >> 24 != kTransparent) continue;
      unsigned char& byte = mask[begin + static_cast<std::size_t>(column) / 8];
      byte = static_cast<unsigned char>(byte | 0x80 >> column % 8);
    }
  }
  return mask;
}

template <class Thing>
void Append(std::vector<unsigned char>& bytes, const Thing* things, std::size_t count) {
  const auto* begin = reinterpret_cast<const unsigned char*>(things);
  bytes.insert(bytes.end(), begin, begin + count * sizeof(Thing));
}

/// The picture as an icon file holds it: a header, the rows from the bottom, the mask.
std::vector<unsigned char> IconBytes(const Picture& picture) {
  BITMAPINFOHEADER header{};
  header.biSize = sizeof header;
  header.biWidth = picture.size;
  header.biHeight = picture.size * 2;  // The mask counts.
  header.biPlanes = 1;
  header.biBitCount = 32;
  const auto width = static_cast<std::size_t>(picture.size);
  std::vector<unsigned char> bytes;
  Append(bytes, &header, 1);
  for (std::size_t row = width; row-- > 0;) {
    Append(bytes, picture.pixels.data() + row * width, width);
  }
  const auto mask = MaskOf(picture);
  Append(bytes, mask.data(), mask.size());
  return bytes;
}

}  // namespace

int WindowsIcons::NotificationSize() {
  const int usual = GetSystemMetrics(SM_CXSMICON);
  const int dpi = TaskBarDpi();
  return dpi > 0 ? MulDiv(16, dpi, kPlainDpi) : std::max(usual, 1);
}

IconHandle WindowsIcons::Create(const Picture& picture) {
  if (picture.size <= 0) return 0;
  std::vector<unsigned char> bytes = IconBytes(picture);
  const HICON icon =
      CreateIconFromResourceEx(bytes.data(), static_cast<DWORD>(bytes.size()), TRUE, kIconFormat,
                               picture.size, picture.size, LR_DEFAULTCOLOR);
  return reinterpret_cast<IconHandle>(icon);
}

void WindowsIcons::Destroy(IconHandle icon) {
  if (icon != 0) DestroyIcon(reinterpret_cast<HICON>(icon));
}

}  // namespace tarvo
