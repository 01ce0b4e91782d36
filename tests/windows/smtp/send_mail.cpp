// Sends one mail to each server given, by the adapters of Windows, and prints what came of it:
//   send-mail STEP-MILLISECONDS PORT...
// The server is looked up by the name "localhost", and the time is that of each step.
#include <cstdio>
#include <cstdlib>

#include "platform/windows/clock_windows.h"
#include "xmldoc/mail/smtp_mailer.h"
#include "xmldoc/mail/windows/tcp_stream_windows.h"

int main(int count, char** arguments) {
  tarvo::WindowsTcpConnector connector;
  tarvo::WindowsTickClock ticks;
  tarvo::SystemUtcClock clock;
  tarvo::SmtpSettings settings;
  const auto step = static_cast<std::uint32_t>(std::atoi(arguments[1]));
  settings.limits = {step, step, step, step, step, step, step, step};
  tarvo::SmtpMailer mailer(connector, ticks, clock, settings);
  for (int i = 2; i < count; ++i) {
    tarvo::MailMessage message;
    message.server = "localhost";
    message.port = std::atoi(arguments[i]);
    message.from = "Launcher <launcher@example.com>";
    message.to = "one@example.com";
    message.subject = "Jos\xE9";
    message.body = "first\n.dot\n";
    // A large body fills the buffers of the connection, so that sending has to wait.
    message.body += std::string(8000000, 'x');
    std::printf("%s\n", mailer.Send(message).value_or("sent").c_str());
    std::fflush(stdout);
  }
  return 0;
}
