#pragma once

#include <string>

#include "platform/files.h"

namespace tarvo {

/// Reads a file whole into `text`. A file that is missing or cannot be read gives false and leaves
/// `text` as it was.
bool ReadWholeFile(FileReader& files, const std::string& path, std::string& text);

}  // namespace tarvo
