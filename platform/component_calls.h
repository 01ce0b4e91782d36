#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tarvo {

/// What came of a call of a component's method.
struct ComponentAnswer {
  bool done = false;
  std::string text;  ///< The result as text; when the call was not done, what is wrong.
};

/// The system's registry of external components.
class ComponentCalls {
 public:
  static constexpr std::size_t kMostArguments = 30;

  virtual ~ComponentCalls() = default;
  /// Creates the component of that programmatic identifier, calls its method with at most
  /// kMostArguments texts, releases the component and gives the result as text. Not done when the
  /// component or its method is not there, when the method raises an exception (the text is its
  /// description then), and when its result is no text and cannot be made one.
  virtual ComponentAnswer Call(const std::string& programId, const std::string& method,
                               const std::vector<std::string>& arguments) = 0;
};

}  // namespace tarvo
