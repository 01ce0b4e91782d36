// Any texts of a mail, and any answers of the server that takes it: no text becomes a command or
// ends the mail, and what is said of a failure is one line. The first byte picks the code page and
// the kind of the body; subject, body and answers follow, with a zero byte between them. Without
// answers the server is a good one.
// corpus: mail
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "xmldoc/mail/smtp_mailer.h"

namespace {

constexpr std::string_view kGoodAnswers =
    "220 hi\n250-one\n250 two\n250 ok\n250 ok\n250 ok\n354 go on\n250 ok\n221 bye\n";
constexpr std::size_t kLongestLine = 998 + 3;  // With a dot before it and its line end.
constexpr std::size_t kLongestReason = 400;

void Require(bool held) {
  if (!held) std::abort();
}

/// Gives its answers a line at a time, or a part of one that a byte of 1 ends.
class Server final : public tarvo::TcpConnector, public tarvo::TickClock, public tarvo::UtcClock {
 public:
  explicit Server(std::string_view answers) : answers_(answers) {}

  std::string sent;

 private:
  class Stream final : public tarvo::TcpStream {
   public:
    explicit Stream(Server& server) : server_(server) {}
    tarvo::StreamOutcome Send(std::string_view bytes, std::uint32_t) override {
      server_.sent += bytes;
      return tarvo::StreamOutcome::Done;
    }
    tarvo::StreamOutcome Receive(std::string& bytes, std::uint32_t milliseconds) override {
      std::string_view& left = server_.answers_;
      if (milliseconds == 0) return tarvo::StreamOutcome::TimedOut;
      if (left.empty()) return tarvo::StreamOutcome::Closed;
      const std::size_t end = left.find_first_of("\n\1");
      bytes += left.substr(0, end);
      if (end != left.npos && left[end] == '\n') bytes += '\n';
      left.remove_prefix(std::min(left.size(), end == left.npos ? end : end + 1));
      ++server_.now_;
      return tarvo::StreamOutcome::Done;
    }

   private:
    Server& server_;
  };

  std::vector<std::string> AddressesOf(const std::string&, std::uint32_t,
                                       tarvo::StreamOutcome& outcome) override {
    outcome = tarvo::StreamOutcome::Done;
    return {"10.0.0.1"};
  }
  std::unique_ptr<tarvo::TcpStream> Connect(const std::string&, int, std::uint32_t,
                                            tarvo::StreamOutcome& outcome) override {
    outcome = tarvo::StreamOutcome::Done;
    return std::make_unique<Stream>(*this);
  }
  std::uint32_t Milliseconds() override { return now_; }
  void Pause(std::uint32_t) override {}
  std::chrono::sys_seconds Now() override { return {}; }

  std::string_view answers_;
  std::uint32_t now_ = 0;
};

/// What was sent is lines, the commands among them are a mailer's own, and one mail at most lies
/// between them; only a mail that the server refused half-way may break off.
void CheckSent(std::string_view sent, bool delivered) {
  bool mail = false;
  int mails = 0;
  while (!sent.empty()) {
    const std::size_t end = sent.find("\r\n");
    if (end == sent.npos && mail && !delivered) return;
    Require(end != sent.npos && end + 2 <= kLongestLine);
    const std::string_view line = sent.substr(0, end);
    sent.remove_prefix(end + 2);
    Require(line.find_first_of("\r\n") == line.npos);
    if (mail) {
      mail = line != ".";
      continue;
    }
    mail = line == "DATA";
    if (mail) ++mails;
    constexpr std::string_view kCommands[] = {"EHLO [127.0.0.1]",
                                              "HELO [127.0.0.1]",
                                              "MAIL FROM:<me@a.example>",
                                              "RCPT TO:<you@a.example>",
                                              "RCPT TO:<him@a.example>",
                                              "DATA",
                                              "QUIT"};
    Require(std::count(std::begin(kCommands), std::end(kCommands), line) == 1);
  }
  Require(delivered ? !mail && mails == 1 : mails <= 1);
}

/// The part of the text before the next zero byte, which is taken off.
std::string_view Take(std::string_view& text) {
  const std::string_view taken = text.substr(0, text.find('\0'));
  text.remove_prefix(std::min(text.size(), taken.size() + 1));
  return taken;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  constexpr const char* kCharsets[] = {"windows-1252", "utf-8", "shift_jis", "gbk", "gb18030"};
  std::string_view input(reinterpret_cast<const char*>(data + 1), size - 1);
  tarvo::MailMessage message;
  message.server = "mail";
  message.from = "Me <me@a.example>";
  message.to = "you@a.example";
  message.bcc = "him@a.example";
  message.subject = Take(input);
  message.body = Take(input);
  message.html = data[0] >= 128;
  Server server(input.empty() ? kGoodAnswers : input);
  tarvo::SmtpSettings settings;
  settings.charset = kCharsets[data[0] % 5];
  const auto reason = tarvo::SmtpMailer(server, server, server, settings).Send(message);
  CheckSent(server.sent, !reason);
  if (input.empty()) Require(!reason);
  if (!reason) return 0;
  Require(!reason->empty() && reason->size() <= kLongestReason);
  for (const char c : *reason) Require(static_cast<unsigned char>(c) >= ' ');
  return 0;
}
