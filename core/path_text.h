#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/code_page.h"

namespace tarvo {

/// Where a path has a "\" that is a character of its own, first to last. In the code pages of East
/// Asia the second byte of a character may look like one.
std::vector<std::size_t> SeparatorsIn(const std::string& path, CodePage& codePage);

}  // namespace tarvo
