#pragma once

#include <deque>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/clock.h"
#include "xmldoc/mail/tcp_stream.h"

namespace tarvo {

/// What one address of the scripted server does.
struct ScriptedAddress {
  std::string address;
  std::deque<std::string> answers;  ///< One for each time that it is waited for.
  StreamOutcome connecting = StreamOutcome::Done;
};

/// A mail server that plays its part from a script, and the clock, which it moves by a second for
/// each answer and by the whole time for each wait in vain.
class ScriptedMailServer : public TcpConnector, public TickClock {
 public:
  explicit ScriptedMailServer(std::deque<std::string> answers)
      : ScriptedMailServer({{"10.0.0.1", std::move(answers)}}) {}
  explicit ScriptedMailServer(std::vector<ScriptedAddress> given) : addresses(std::move(given)) {}

  std::vector<std::string> AddressesOf(const std::string& host, std::uint32_t milliseconds,
                                       StreamOutcome& outcome) override;
  std::unique_ptr<TcpStream> Connect(const std::string& address, int port,
                                     std::uint32_t milliseconds, StreamOutcome& outcome) override;
  std::uint32_t Milliseconds() override { return now; }
  void Pause(std::uint32_t) override {}

  std::vector<ScriptedAddress> addresses;
  StreamOutcome lookingUp = StreamOutcome::Done;
  StreamOutcome atEnd = StreamOutcome::Closed;  ///< Of waiting when no answer is left.
  /// What it says without waiting its turn, once so many bytes have come; then it closes.
  std::string outcry;
  std::size_t outcryAfter = std::string::npos;
  std::size_t deafAfter = std::string::npos;  ///< Sending fails once so many bytes have come.
  StreamOutcome deaf = StreamOutcome::Closed;
  std::string lastWords;           ///< What it says when sending fails.
  std::uint32_t perAnswer = 1000;  ///< Milliseconds.

  std::string sent;
  std::size_t largestPart = 0;           ///< Of what was sent.
  std::vector<std::uint32_t> waits;      ///< For answers.
  std::vector<std::uint32_t> sendWaits;  ///< For sending.
  std::vector<std::string> calls;        ///< "look up HOST MS", "connect ADDRESS PORT MS".
  std::uint32_t now = 0xFFFFFF00;        ///< Wraps on the way.
};

class FixedUtcClock : public UtcClock {
 public:
  std::chrono::sys_seconds Now() override { return {}; }
};

}  // namespace tarvo
