#pragma once

#include <cstdint>
#include <string>

namespace tarvo {

/// What became of the attempt to show the window of the lock's holder.
enum class HolderShown {
  Yes,
  NoWindow,    ///< It has none that can be found: it is just starting, or ending, or out of sight.
  NotAllowed,  ///< It runs with more rights than this program, or for another user.
};

/// Keeps a second launcher out of a server root: two of them would restart the servers against each
/// other.
class InstanceLock {
 public:
  virtual ~InstanceLock() = default;
  /// Takes the machine-wide lock of this name (letters, digits, "_"; at most 100) and holds it
  /// until the program ends, however it ends. False when another running program holds it; one that
  /// is just ending is waited for, 3 seconds at most.
  virtual bool Acquire(const std::string& name) = 0;
  /// Shows the window of the program that holds the lock and brings it to the front, without
  /// waiting for that program.
  virtual HolderShown ShowHolder(const std::string& name) = 0;
  /// Lets `ShowHolder` of a later program find this window (a handle of this process).
  virtual void Publish(const std::string& name, std::intptr_t window) = 0;
};

}  // namespace tarvo
