#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "platform/sockets.h"
#include "platform/windows/late_answer.h"

namespace tarvo {

/// Looks names up without being held by a name server that does not answer.
///
/// Each open question runs gethostbyname on a thread of its own (see LateAnswer). A thread was
/// chosen among the system's three ways: the answers of WSAAsyncGetHostByName come as window
/// messages, and looking for those lets other programs' messages through to the program's own
/// windows; GetAddrInfoExW can wait for an event, but not on Windows 7. With the thread the names
/// are found as gethostbyname finds them. There is one question for each name at a time, so no more
/// threads than names.
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
  using Address = std::vector<std::uint8_t>;  ///< Empty for none.
  struct Question {
    LateAnswer<Address> answer;
    bool waitedFor = false;  ///< A wait for it has ended without an answer.
  };

  static int FindHost(const char* host, std::uint8_t* address);
  Question Ask(const std::string& host) const;

  Find find_;
  std::map<std::string, Question> open_;
};

}  // namespace tarvo
