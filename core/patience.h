#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/clock.h"
#include "platform/files.h"

namespace tarvo {

/// How long the launcher waits for a file that another program holds: a scanner or a backup program
/// for a moment, an executable whose process has just died.
///
/// A file that stays held is given up when `kLongestHold` milliseconds were spent waiting between
/// the tries. What the tries themselves take does not count, so that a slow disk uses up no
/// patience; but there is only one thread, and it watches nobody meanwhile: once the whole has
/// taken `kLongestWhole`, the next try from the `kLeastTries`-th on is the last.
class Patience {
 public:
  using Attempt = std::function<std::optional<FileFault>()>;

  explicit Patience(TickClock& clock) : clock_(clock) {}

  /// Tries until it works, or fails for any other reason than a held file, or the patience ends.
  /// Returns the last fault; nothing when it worked.
  std::optional<FileFault> Try(const Attempt& attempt) const;

  static constexpr std::uint32_t kLongestHold = 5000;
  static constexpr std::uint32_t kBetweenTries = 100;
  static constexpr std::uint32_t kLongestWhole = 30000;
  static constexpr int kLeastTries = 5;

 private:
  TickClock& clock_;
};

/// Replaces files with patience.
class PatientReplacer final : public FileReplacer {
 public:
  PatientReplacer(FileReplacer& files, TickClock& clock) : files_(files), patience_(clock) {}

  std::optional<FileFault> ReplaceText(const std::string& path, const std::string& text) override {
    return patience_.Try([&] { return files_.ReplaceText(path, text); });
  }

 private:
  FileReplacer& files_;
  Patience patience_;
};

}  // namespace tarvo
