#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "platform/sockets.h"

namespace tarvo {

/// Looks names up without being held by a name server that does not answer.
///
/// Each open question runs gethostbyname on a thread of its own, which touches nothing but the
/// question's record; the caller waits for the record's event, so that no message is handled and
/// nothing of the program runs meanwhile. A thread was chosen among the system's three ways: the
/// answers of WSAAsyncGetHostByName come as window messages, and looking for those lets other
/// programs' messages through to the program's own windows; GetAddrInfoExW can wait for an event,
/// but not on Windows 7. With the thread the names are found as gethostbyname finds them.
///
/// A record belongs to the caller and to its thread, and goes with the last of the two: an answer
/// that comes after the caller has gone is written into a record that is still there. There is one
/// question for each name at a time, so no more threads than names. Threads that still wait at the
/// program's end are ended by the system.
class NameLookUps {
 public:
  /// The longest address that is taken.
  static constexpr int kAddressSize = 16;
  /// Writes a host's first address; gives its length, 0 when there is none. Runs on any thread.
  using Find = int (*)(const char* host, std::uint8_t* address);

  explicit NameLookUps(Find find = &FindHost) : find_(find) {}
  ~NameLookUps() = default;
  NameLookUps(const NameLookUps&) = delete;
  NameLookUps& operator=(const NameLookUps&) = delete;

  /// See `Sockets::FirstAddressOf`.
  HostAnswer FirstAddressOf(const std::string& host, std::uint32_t milliseconds);
  /// Forgets all open questions; their threads end when the system has answered them.
  void Forget() { open_.clear(); }

 private:
  struct Question;
  struct Release {
    void operator()(Question* question) const;
  };
  using Shared = std::unique_ptr<Question, Release>;

  static int FindHost(const char* host, std::uint8_t* address);
  static unsigned long __stdcall Run(void* question);
  Shared Ask(const std::string& host) const;
  static bool Answered(const Question& question, std::uint32_t milliseconds);

  Find find_;
  std::map<std::string, Shared> open_;
};

}  // namespace tarvo
