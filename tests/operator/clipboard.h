#pragma once

#include <string>

namespace tarvo {

/// The text on the clipboard; no text there is an error.
std::string ReadClipboard();

}  // namespace tarvo
