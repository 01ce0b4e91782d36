#pragma once

#include "platform/file_diagnosis.h"

namespace tarvo {

class WindowsFileDiagnosis final : public FileDiagnosis {
 public:
  std::optional<FileFault> WhyUnreadable(const std::string& path) override;
};

}  // namespace tarvo
