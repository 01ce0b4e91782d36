#pragma once

#include <cstddef>

#include "checkup/finding.h"
#include "core/server_root.h"
#include "platform/file_inspection.h"
#include "platform/files.h"

namespace tarvo {

/// Reads `conf\battle_athena.conf` and the randomizer's two files, as the randomizer does, and
/// tells what is wrong with them. A file of more than `most` bytes is not read: of the first one
/// the beginning is, and of the others nothing, which counts as not whole.
Findings CheckSetsOf(const ServerRoot& root, FileInspection& inspection, FileReader& files,
                     std::size_t most);

}  // namespace tarvo
