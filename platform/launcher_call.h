#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace tarvo {

enum class CallEnd {
  Answered,
  NoLauncher,  ///< Nobody holds the lock of that name.
  NotReached,  ///< Somebody does, but has no window that this program can send to.
  LineBroken,  ///< The launcher ended, or refused to read what it was sent.
  TimeOver,
};

struct CallResult {
  CallEnd end = CallEnd::NoLauncher;
  std::string answer;  ///< Of Answered: the bytes as they were sent.
};

/// Digits of a line's address, 0 to 9 and a to f.
inline constexpr std::size_t kAddressLength = 32;
/// Bytes of a message, its address included; a longer one is not sent, and not received.
inline constexpr std::size_t kLongestMessage = 256;
/// Bytes of an answer.
inline constexpr std::size_t kLongestAnswer = 65536;

/// One program's call to the launcher that holds an instance lock (see `InstanceLock`), whose main
/// window gets it as a message: an address that nobody can guess, `kAddressLength` long, and the
/// record behind it. The answer comes on a line of that address, which this program lays first.
class LauncherCall {
 public:
  virtual ~LauncherCall() = default;
  /// Waits for the answer, `longestWait` milliseconds at most.
  virtual CallResult Call(const std::string& instanceName, const std::string& record,
                          std::uint32_t longestWait) = 0;
};

/// The launcher's end of a line. It never waits: an answer that the caller does not take at once is
/// lost.
class AnswerLine {
 public:
  virtual ~AnswerLine() = default;
  /// Whether the caller's program has less rights than this one: what it may not click, it may not
  /// command. True as well when that cannot be found out.
  virtual bool CallerHasLessRights() = 0;
  /// At most `kLongestAnswer` bytes; call it once.
  virtual void Send(const std::string& answer) = 0;
};

class AnswerLines {
 public:
  virtual ~AnswerLines() = default;
  /// Takes up the line of that address (its form is checked); nothing when nobody has laid it.
  virtual std::unique_ptr<AnswerLine> Open(const std::string& address) = 0;
};

}  // namespace tarvo
