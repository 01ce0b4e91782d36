#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "checkup/finding.h"
#include "platform/processes.h"
#include "support/component_kind.h"

namespace tarvo {

/// What the header of a file says.
struct ProgramHeader {
  bool isProgram = false;       ///< An executable of Windows, and no library.
  std::uint16_t processor = 0;  ///< For which it was built, by its number.
  bool hasConsole = false;      ///< The system gives it a console window.
};

/// Reads the header in the first bytes of a file.
ProgramHeader ReadProgramHeader(std::string_view bytes);

/// As many bytes hold every header that is met.
inline constexpr std::size_t kHeaderBytes = 4096;

struct ExecutableFacts {
  std::string name;  ///< Bare file name; "" when none is chosen.
  bool present = false;
  bool readable = false;
  bool isLauncher = false;
  ProgramHeader header;
  bool processorFits = true;
  bool ownsWindow = false;  ///< It runs at present, and owns a window.
};

Findings CheckExecutables(const PerComponent<ExecutableFacts>& executables);

/// A process that has the name of a component's executable.
struct NamesakeFacts {
  ProcessId process = 0;
  std::string path;           ///< "" when the system does not tell.
  bool fromRoot = false;      ///< It is the root's own executable.
  bool otherSession = false;  ///< Its windows cannot be seen from the launcher's session.
};

Findings CheckSameName(ComponentKind kind, const std::string& executable,
                       const std::vector<NamesakeFacts>& namesakes);

}  // namespace tarvo
