#pragma once

#include <string>

namespace tarvo {

/// What the program does when it dies of a fault of its own.
struct RestartOrder {
  /// With what it is started again; nothing: it is not started again. At most
  /// `kLongestArguments` characters, no NUL.
  std::string arguments;
  /// The folder of the day's log file, which gets a line about the fault; nothing: it gets none.
  std::string logFolder;

  bool operator==(const RestartOrder&) const = default;
};

inline constexpr std::size_t kLongestArguments = 30000;

/// A fault that the program has noticed itself.
enum class OwnFault {
  OutOfMemory,
  UnexpectedException,  ///< Of the standard library, raised where none should be.
};

/// Brings the program back when it dies of a fault of its own: an access violation, a stack that
/// runs over, memory that runs out, an abort. The fault (code, address, version) is written to the
/// event log and, when the order says so, in the day's log file, the file of the moment of dying.
/// Then the program is started again, unless it is younger than a minute: what fails at once would
/// fail for ever. Being ended from outside is no fault.
class SelfRestart {
 public:
  virtual ~SelfRestart() = default;
  /// The arguments that this program was started with, as one text.
  virtual std::string Arguments() = 0;
  /// The order that counts from now on. It is ready for a fault that leaves no memory to work
  /// with. Without one nothing is started again.
  virtual void Keep(const RestartOrder& order) = 0;
  /// Dies of this fault, as above. Returns only when the program is not started again: then the
  /// fault has been reported, and the caller has to end the program.
  virtual void Die(OwnFault fault) = 0;
};

}  // namespace tarvo
