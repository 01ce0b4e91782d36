#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tarvo {

/// The system's registry of external components.
class ComponentCalls {
 public:
  static constexpr std::size_t kMostArguments = 30;

  virtual ~ComponentCalls() = default;
  /// Creates the component of that programmatic identifier, calls its method with at most
  /// kMostArguments texts, releases the component and gives the result as text. Nothing when the
  /// component or its method is not there, or when the call failed.
  virtual std::optional<std::string> Call(const std::string& programId, const std::string& method,
                                          const std::vector<std::string>& arguments) = 0;
};

}  // namespace tarvo
