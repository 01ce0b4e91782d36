#pragma once

#include <cstddef>

namespace tarvo {

/// Characters of the longest path that Windows takes or gives, its closing zero included.
inline constexpr std::size_t kLongestPath = 32768;

}  // namespace tarvo
