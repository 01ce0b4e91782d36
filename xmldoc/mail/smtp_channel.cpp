#include "xmldoc/mail/smtp_channel.h"

#include "xmldoc/mail/mail_address.h"

namespace tarvo {
namespace {

constexpr std::size_t kMostAnswer = 65536;
constexpr std::size_t kMostReason = 200;
constexpr std::size_t kMostOfNonsense = 60;
constexpr std::size_t kCodeDigits = 3;

void Check(const std::string& step, StreamOutcome outcome) {
  if (outcome != StreamOutcome::Done) throw SmtpFault{step + ": " + ReasonOf(outcome)};
}

/// The first digit of the code that a line begins with, 0 for none.
int KindOf(std::string_view line) {
  const bool hasCode = line.size() >= kCodeDigits &&
                       line.find_first_not_of("0123456789") >= kCodeDigits && line[0] != '0';
  return hasCode ? line[0] - '0' : 0;
}

}  // namespace

const char* ReasonOf(StreamOutcome outcome) {
  switch (outcome) {
    case StreamOutcome::TimedOut:
      return "no answer in time";
    case StreamOutcome::Closed:
      return "connection closed";
    default:
      return "no connection";
  }
}

std::string ReasonOf(const std::string& step, const SmtpAnswer& answer) {
  return step + ": " + InOneLine(answer.text).substr(0, kMostReason);
}

SmtpAnswer SmtpChannel::Ask(const std::string& step, std::string_view command,
                            std::uint32_t milliseconds) {
  const Deadline deadline{ticks_.Milliseconds(), milliseconds};
  lastKind_ = 0;
  if (!command.empty()) {
    const StreamOutcome sent = stream_->Send(command, milliseconds);
    if (sent != StreamOutcome::Done) {
      Listen();
      RaiseRefusal(step, 0);
    }
    Check(step, sent);
  }
  return ReadAnswer(step, deadline);
}

void SmtpChannel::SendPart(const std::string& step, std::string_view bytes,
                           std::uint32_t milliseconds) {
  const StreamOutcome heard = Listen();
  RaiseRefusal(step, milliseconds);
  if (heard != StreamOutcome::TimedOut) Check(step, heard);
  const StreamOutcome sent = stream_->Send(bytes, milliseconds);
  if (sent == StreamOutcome::Done) return;
  Listen();
  RaiseRefusal(step, 0);
  Check(step, sent);
}

int SmtpChannel::KindBegun() const {
  if (lastKind_ != 0) return lastKind_;
  return received_.size() > kCodeDigits ? KindOf(received_) : 0;
}

/// Raises the server's own words when it has begun to refuse.
void SmtpChannel::RaiseRefusal(const std::string& step, std::uint32_t milliseconds) {
  if (received_.empty() || (received_[0] != '4' && received_[0] != '5')) return;
  const Deadline deadline{ticks_.Milliseconds(), milliseconds};
  throw SmtpFault{ReasonOf(step, ReadAnswer(step, deadline))};
}

std::uint32_t SmtpChannel::TimeLeft(const std::string& step, const Deadline& deadline) {
  if (deadline.given == 0) return 0;
  const std::uint32_t passed = ticks_.Milliseconds() - deadline.started;
  if (passed >= deadline.given) Check(step, StreamOutcome::TimedOut);
  return deadline.given - passed;
}

std::string SmtpChannel::ReadLine(const std::string& step, const Deadline& deadline) {
  std::size_t end = received_.find('\n');
  while (end == std::string::npos) {
    const std::size_t before = received_.size();
    Check(step, stream_->Receive(received_, TimeLeft(step, deadline)));
    if (received_.size() > kMostAnswer) throw SmtpFault{step + ": answer too long"};
    end = received_.find('\n', before);
  }
  std::string line = received_.substr(0, end);
  received_.erase(0, end + 1);
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

SmtpAnswer SmtpChannel::ReadAnswer(const std::string& step, const Deadline& deadline) {
  SmtpAnswer answer;
  for (std::size_t size = 0;;) {
    const std::string line = ReadLine(step, deadline);
    size += line.size();
    if (size > kMostAnswer) throw SmtpFault{step + ": answer too long"};
    answer.kind = KindOf(line);
    if (answer.kind == 0) {
      throw SmtpFault{step + ": not understood: " + InOneLine(line).substr(0, kMostOfNonsense)};
    }
    lastKind_ = answer.kind;
    answer.text += (answer.text.empty() ? "" : " ") + line;
    if (line.size() == kCodeDigits || line[kCodeDigits] != '-') return answer;
  }
}

}  // namespace tarvo
