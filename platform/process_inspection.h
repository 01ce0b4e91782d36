#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/processes.h"

namespace tarvo {

/// What is to be known of processes beyond their names. No call keeps a handle open.
class ProcessInspection {
 public:
  virtual ~ProcessInspection() = default;
  /// Full path of the executable; "" when the system does not tell this user.
  virtual std::string PathOf(ProcessId id) = 0;
  /// The session of a signed-in user, or that of the services (0), which the process runs in.
  /// Nothing when there is no such process.
  virtual std::optional<std::uint32_t> SessionOf(ProcessId id) = 0;
  /// This program's own process.
  virtual ProcessId OwnId() = 0;
  /// Whether this system starts programs for that processor, by its number in an executable's
  /// header.
  virtual bool StartsProgramsFor(std::uint16_t processor) = 0;
};

}  // namespace tarvo
