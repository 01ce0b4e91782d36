#pragma once

#include "support/component_kind.h"

namespace tarvo {

/// The buttons that start and stop: one for each component, by its index, then these.
inline constexpr std::size_t kStartAllButton = kComponentCount;
inline constexpr std::size_t kStopAllButton = kStartAllButton + 1;

}  // namespace tarvo
