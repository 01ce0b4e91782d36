#pragma once

#include <string>

#include "platform/files.h"

namespace tarvo {

/// Reads a file whole into `text`. Returns false and leaves `text` as it was when the file is
/// missing or cannot be read.
bool ReadWholeFile(FileReader& files, const std::string& path, std::string& text);

}  // namespace tarvo
