#pragma once

#include <string>
#include <vector>

#include "platform/document_opener.h"
#include "tests/simulation/sim_files.h"

namespace tarvo {

/// Remembers what was opened; only files of the machine can be.
class SimDocuments final : public DocumentOpener {
 public:
  explicit SimDocuments(const SimFiles& files) : files_(files) {}

  bool Open(const std::string& path) override {
    if (!files_.Has(path)) return false;
    opened.push_back(path);
    return true;
  }

  std::vector<std::string> opened;

 private:
  const SimFiles& files_;
};

}  // namespace tarvo
