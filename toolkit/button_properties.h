#pragma once

namespace tarvo {

/// The window property of a button that shows a picture instead of its text.
inline constexpr char kPictureProperty[] = "TarvoPicture";

/// The window property of a drawn button that holds its access key, in lower case.
inline constexpr char kAccessKeyProperty[] = "TarvoAccessKey";

}  // namespace tarvo
