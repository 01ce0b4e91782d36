#pragma once

#include <optional>
#include <string>

namespace tarvo {

/// One mail. The texts are in the system's ANSI code page and come from anywhere: a Mailer keeps
/// line ends and the like in them from becoming header lines or commands.
struct MailMessage {
  std::string server;  ///< Name or address of the mail server.
  int port = 25;       ///< 1 to 65535.
  std::string from;    ///< One mailbox: "a@b" or "Name <a@b>".
  std::string to;      ///< Mailboxes with "," or ";" between them, as `cc` and `bcc`.
  std::string cc;
  std::string bcc;  ///< Recipients that no header names.
  std::string subject;
  std::string body;
  bool html = false;  ///< The body is HTML, not plain text.
};

/// Hands mails to a mail server.
class Mailer {
 public:
  virtual ~Mailer() = default;
  /// Waits until the mail is handed over or has failed. Nothing when the server accepted it for
  /// every recipient; otherwise why not, in one line.
  virtual std::optional<std::string> Send(const MailMessage& message) = 0;
};

}  // namespace tarvo
