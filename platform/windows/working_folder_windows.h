#pragma once

#include "platform/working_folder.h"

namespace tarvo {

class WindowsWorkingFolder final : public WorkingFolder {
 public:
  bool MoveInto(const std::string& folder) override;
};

}  // namespace tarvo
