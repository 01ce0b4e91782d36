#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/code_page.h"

namespace tarvo {

/// The positions of each "\" in a path that is a character of its own, first to last. In the code
/// pages of East Asia the second byte of a character may look like one.
std::vector<std::size_t> SeparatorsIn(const std::string& path, CodePage& codePage);

}  // namespace tarvo
