#pragma once

#include <string>

#include "platform/files.h"
#include "tests/simulation/call_recorder.h"

namespace tarvo {

/// The launcher's current folder. It begins where "Start with Windows" begins: in a folder that is
/// no server root.
class SimWorkingFolder final : public WorkingFolder {
 public:
  explicit SimWorkingFolder(CallRecorder& recorder) : recorder_(recorder) {}

  /// A drive without "\" behind it is the folder that is current on that drive already.
  bool MoveInto(const std::string& folder) override {
    recorder_.Note("workingFolder.moveInto(" + folder + ")");
    if (!folder.ends_with(':')) current = folder;
    return true;
  }

  std::string current = "C:\\Windows\\System32\\";

 private:
  CallRecorder& recorder_;
};

}  // namespace tarvo
