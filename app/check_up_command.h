#pragma once

#include <string>

#include "checkup/check_up.h"
#include "platform/machine.h"

namespace tarvo {

/// Those ports of the machine that a check-up looks at.
CheckUpPorts CheckUpPortsOf(const Machine& machine);

/// What the command `--check` answers.
struct CheckUpAnswer {
  std::string text;  ///< In the system's code page; as JSON in UTF-8.
  int exitCode = 0;  ///< 0 for no findings and for notes alone, 1 for warnings, 2 for errors.
};

/// Looks over the server root that the program stands in, with what is stored for it, whether or
/// not a launcher runs there, and without a word to that one. The program's current folder becomes
/// the root.
CheckUpAnswer CheckFromOutside(const Machine& machine, bool json = false);

}  // namespace tarvo
