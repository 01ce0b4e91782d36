#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarvo {

/// A system icon; 0 means none.
using IconHandle = std::intptr_t;

/// A square picture, row by row from the top, each pixel 0xAARRGGBB with plain (not premultiplied)
/// colour parts; alpha 255 is opaque, 0 transparent.
struct Picture {
  int size = 0;  ///< Pixels across.
  std::vector<std::uint32_t> pixels;

  std::uint32_t At(int column, int row) const {
    return pixels[static_cast<std::size_t>(row) * static_cast<std::size_t>(size) +
                  static_cast<std::size_t>(column)];
  }
};

/// Makes the system's icons out of pictures.
class Icons {
 public:
  virtual ~Icons() = default;
  /// Pixels across that the notification area shows at this moment; it follows the scale of the
  /// screen, so it may change while the program runs.
  virtual int NotificationSize() = 0;
  /// 0 when the system has no room for one more. The caller destroys the icon.
  virtual IconHandle Create(const Picture& picture) = 0;
  /// Nothing happens for 0.
  virtual void Destroy(IconHandle icon) = 0;
};

}  // namespace tarvo
