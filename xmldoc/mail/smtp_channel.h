#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "platform/clock.h"
#include "xmldoc/mail/tcp_stream.h"

namespace tarvo {

/// Why a mail was not handed over, in one line. Raised by what cannot go on.
struct SmtpFault {
  std::string reason;
};

/// What a server said: "250-one", "250 two" is the kind 2 and the text "250-one 250 two".
struct SmtpAnswer {
  /// The code's first digit: 2 done; 3 go on; 4 not now; 5 no. The others decide nothing.
  int kind = 0;
  std::string text;
};

/// How a call on a connection ended, in words.
const char* ReasonOf(StreamOutcome outcome);
/// The reason for a step that the server has refused.
std::string ReasonOf(const std::string& step, const SmtpAnswer& answer);

/// Commands and answers over one connection. Every call raises SmtpFault, which names the step,
/// when the connection fails, the time is over, or what comes is no answer. Times are milliseconds
/// above 0, for the whole call. It owns the connection; the clock has to outlive it.
class SmtpChannel {
 public:
  SmtpChannel(std::unique_ptr<TcpStream> stream, TickClock& ticks)
      : stream_(std::move(stream)), ticks_(ticks) {}

  /// Sends a command with its line end, which may be empty, and gives the answer.
  SmtpAnswer Ask(const std::string& step, std::string_view command, std::uint32_t milliseconds);

  /// Sends a part of something to which the server has no answer before its end. When it speaks up
  /// all the same to refuse, nothing more is sent and its words are the fault's reason.
  void SendPart(const std::string& step, std::string_view bytes, std::uint32_t milliseconds);

  /// The kind that has come, even of an answer that broke off after its code; 0 for none. To be
  /// called after Ask.
  int KindBegun() const;

 private:
  /// When a call has to be over. A time of 0 lets it take what has come already.
  struct Deadline {
    std::uint32_t started;
    std::uint32_t given;
  };

  std::uint32_t TimeLeft(const std::string& step, const Deadline& deadline);
  StreamOutcome Listen() { return stream_->Receive(received_, 0); }
  void RaiseRefusal(const std::string& step, std::uint32_t milliseconds);
  std::string ReadLine(const std::string& step, const Deadline& deadline);
  SmtpAnswer ReadAnswer(const std::string& step, const Deadline& deadline);

  std::unique_ptr<TcpStream> stream_;
  TickClock& ticks_;
  std::string received_;
  int lastKind_ = 0;
};

/// How long a mailer waits, in milliseconds, all above 0. Those of the conversation are the least
/// that RFC 5321 (4.5.3.2) asks for. However slowly bytes drip in, each is for the whole step.
struct SmtpLimits {
  std::uint32_t lookUp = 30000;       ///< For the addresses of the server's name.
  std::uint32_t connecting = 30000;   ///< For each address.
  std::uint32_t greeting = 300000;    ///< Until the server has said who it is.
  std::uint32_t command = 300000;     ///< EHLO, HELO, MAIL FROM and each RCPT TO, with its answer.
  std::uint32_t data = 120000;        ///< DATA with its answer.
  std::uint32_t block = 180000;       ///< For each block of the mail itself.
  std::uint32_t lastAnswer = 600000;  ///< After the mail: while the server delivers it.
  std::uint32_t farewell = 10000;     ///< QUIT with its answer, on which nothing depends.
};

}  // namespace tarvo
