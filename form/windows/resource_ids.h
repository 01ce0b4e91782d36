#pragma once

namespace tarvo {

/// Numbers in `launcher.rc`, which cannot read this file.
inline constexpr int kLauncherIcon = 1;

}  // namespace tarvo
