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
/// A file that stays held is given up after `kLongestHold` milliseconds of waiting between the
/// tries. The time of the tries themselves does not count, so that a slow disk uses up no patience.
/// But they block the only thread, which watches nothing meanwhile: a try that ends `kLongestWhole`
/// milliseconds or more after the first one began is the last, from the `kLeastTries`-th try on.
class Patience {
 public:
  /// One try; the fault, or nothing when it worked. It may be called many times.
  using Attempt = std::function<std::optional<FileFault>()>;

  explicit Patience(TickClock& clock) : clock_(clock) {}

  /// Tries until it works, or fails for any other reason than a held file, or the patience ends; no
  /// event is handled meanwhile. Returns the last fault; nothing when it worked.
  std::optional<FileFault> Try(const Attempt& attempt) const;

  static constexpr std::uint32_t kLongestHold = 5000;
  static constexpr std::uint32_t kBetweenTries = 100;  ///< Milliseconds.
  static constexpr std::uint32_t kLongestWhole = 30000;
  static constexpr int kLeastTries = 5;

 private:
  TickClock& clock_;
};

/// Replaces files with patience. The port and the clock must outlive it.
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
