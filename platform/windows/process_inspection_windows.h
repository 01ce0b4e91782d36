#pragma once

#include "platform/process_inspection.h"

namespace tarvo {

/// Processes by handles that ask for the little that every user is told.
class WindowsProcessInspection : public ProcessInspection {
 public:
  std::string PathOf(ProcessId id) override;
  std::optional<std::uint32_t> SessionOf(ProcessId id) override;
  ProcessId OwnId() override;
  bool StartsProgramsFor(std::uint16_t processor) override;
};

}  // namespace tarvo
