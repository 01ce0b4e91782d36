#pragma once

#include <string>
#include <vector>

namespace tarvo::acceptance {

/// What may make a difference: the version of Windows, code page, resolution and scale, screens,
/// high contrast, rights. One line each.
std::vector<std::string> DescribeMachine();

}  // namespace tarvo::acceptance
