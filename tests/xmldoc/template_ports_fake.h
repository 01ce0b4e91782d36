#pragma once

#include <optional>
#include <string>
#include <vector>

#include "xmldoc/template/template_ports.h"

namespace tarvo {

/// 2026-11-21 10:32:07, unless told otherwise.
class StoppedClock : public LocalClock {
 public:
  LocalTime Now() override {
    using namespace std::chrono;
    return local_days{year{2026} / November / 21} + hours{10} + minutes{32} + seconds{7};
  }
};

/// Gives the greatest number, and remembers what was asked.
class GreatestNumber : public RandomSource {
 public:
  void Reseed() override {}
  double Fraction() override { return 0; }
  std::uint32_t Below(std::uint32_t bound) override {
    bounds.push_back(bound);
    return bound - 1;
  }
  std::vector<std::uint32_t> bounds;
};

/// Takes every mail but those for full@example.com.
class RecordedMailer : public Mailer {
 public:
  std::optional<std::string> Send(const MailMessage& message) override {
    mails.push_back(message);
    if (message.to != "full@example.com") return std::nullopt;
    return "RCPT TO full@example.com: 452 4.2.2 full";
  }
  std::vector<MailMessage> mails;
};

/// Answers with `answer` and remembers the calls as "identifier.method(a,b)".
class RecordedComponents : public ComponentCalls {
 public:
  ComponentAnswer Call(const std::string& programId, const std::string& method,
                       const std::vector<std::string>& arguments) override {
    std::string call = programId + "." + method + "(";
    for (const std::string& one : arguments) call += (call.back() == '(' ? "" : ",") + one;
    calls.push_back(call + ")");
    return answer;
  }
  ComponentAnswer answer{true, "called"};
  std::vector<std::string> calls;
};

/// All ports but that of the components, which a caller may add.
struct FakePorts {
  StoppedClock clock;
  GreatestNumber random;
  RecordedMailer mailer;
  RecordedComponents components;

  TemplatePorts Without() { return {}; }
  TemplatePorts All() {
    TemplatePorts ports;
    ports.clock = &clock;
    ports.random = &random;
    ports.mailer = &mailer;
    ports.components = &components;
    return ports;
  }
};

}  // namespace tarvo
