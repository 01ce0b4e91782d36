#pragma once

#include <string>

#include "support/component_kind.h"

namespace tarvo {

/// Whether the lines that a launcher writes of its servers come in an order that can be true: no
/// server is back that was not frozen, none is shut down that was not, none listens twice after one
/// start, none is started while it counts as started. One object for each launcher's life.
class LogOrder final {
 public:
  /// What is wrong with the line where it stands; "" for nothing.
  std::string Take(const std::string& text);

 private:
  enum class State { Stopped, Started, Frozen, ShutDown, Crashed, Refused };
  struct One {
    State state = State::Stopped;
    bool listeningIsDue = false;  ///< It has been started, and its grace is not told as over.
    bool justStopped = false;
  };

  bool TakeOf(ComponentKind kind, const std::string& text);
  bool Start(One& one, State next);

  PerComponent<One> all_;
};

}  // namespace tarvo
