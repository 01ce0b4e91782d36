#include "tests/xmldoc/mail/scripted_mail_server.h"

#include <algorithm>

namespace tarvo {
namespace {

class ScriptedStream : public TcpStream {
 public:
  ScriptedStream(ScriptedMailServer& server, std::deque<std::string> answers)
      : server_(server), answers_(std::move(answers)) {}

  StreamOutcome Send(std::string_view bytes, std::uint32_t milliseconds) override {
    server_.sendWaits.push_back(milliseconds);
    if (server_.sent.size() >= server_.deafAfter) return FallSilent();
    server_.sent += bytes;
    server_.largestPart = std::max(server_.largestPart, bytes.size());
    return StreamOutcome::Done;
  }

  StreamOutcome Receive(std::string& bytes, std::uint32_t milliseconds) override {
    if (milliseconds == 0) return TakeOutcry(bytes);
    server_.waits.push_back(milliseconds);
    if (answers_.empty()) {
      if (server_.atEnd == StreamOutcome::TimedOut) server_.now += milliseconds;
      return server_.atEnd;
    }
    server_.now += server_.perAnswer;
    bytes += answers_.front();
    answers_.pop_front();
    return StreamOutcome::Done;
  }

 private:
  StreamOutcome FallSilent() {
    if (!server_.lastWords.empty()) {
      server_.outcry = std::exchange(server_.lastWords, {});
      server_.outcryAfter = 0;
    }
    return server_.deaf;
  }
  StreamOutcome TakeOutcry(std::string& bytes) {
    if (server_.sent.size() < server_.outcryAfter) return StreamOutcome::TimedOut;
    if (server_.outcry.empty()) return StreamOutcome::Closed;
    bytes += std::exchange(server_.outcry, {});
    return StreamOutcome::Done;
  }

  ScriptedMailServer& server_;
  std::deque<std::string> answers_;
};

}  // namespace

std::vector<std::string> ScriptedMailServer::AddressesOf(const std::string& host,
                                                         std::uint32_t milliseconds,
                                                         StreamOutcome& outcome) {
  calls.push_back("look up " + host + " " + std::to_string(milliseconds));
  outcome = lookingUp;
  std::vector<std::string> all;
  for (const ScriptedAddress& one : addresses) {
    if (outcome == StreamOutcome::Done) all.push_back(one.address);
  }
  return all;
}

std::unique_ptr<TcpStream> ScriptedMailServer::Connect(const std::string& address, int port,
                                                       std::uint32_t milliseconds,
                                                       StreamOutcome& outcome) {
  calls.push_back("connect " + address + " " + std::to_string(port) + " " +
                  std::to_string(milliseconds));
  outcome = StreamOutcome::Failed;
  for (const ScriptedAddress& one : addresses) {
    if (one.address != address) continue;
    outcome = one.connecting;
    if (outcome == StreamOutcome::TimedOut) now += milliseconds;
    if (outcome == StreamOutcome::Done) return std::make_unique<ScriptedStream>(*this, one.answers);
  }
  return nullptr;
}

}  // namespace tarvo
