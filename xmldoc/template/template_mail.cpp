#include "xmldoc/template/template_mail.h"

#include <cmath>
#include <vector>

#include "support/number_text.h"
#include "xmldoc/rules/text_rules.h"
#include "xmldoc/template/template_error.h"
#include "xmldoc/template/template_path.h"
#include "xmldoc/template/template_tag.h"

namespace tarvo {
namespace {

constexpr std::string_view kMailOpen = "<sendmail ";
constexpr std::string_view kMailClose = "</sendmail>";
constexpr const char* kFailed = "xDocument[SENDMAIL] Error: ";
constexpr char kValueMark = '\x01';
constexpr int kDefaultPort = 25;
constexpr int kMostPort = 65535;

/// A directive's place: from `start` to before `end`, its tag up to `tagEnd`, its body after that.
struct MailPlace {
  std::size_t start;
  std::size_t tagEnd;
  std::size_t bodyEnd;
  std::size_t end;
};

/// The text with every value blotted out, in which directives are looked for.
std::string WithoutValues(const TemplateText& filled) {
  std::string outline = filled.text;
  for (const TemplateText::Range& value : filled.values) {
    outline.replace(value.start, value.length, value.length, kValueMark);
  }
  return outline;
}

std::vector<MailPlace> FindMails(std::string_view outline) {
  std::vector<MailPlace> mails;
  auto at = FindIgnoringCase(outline, kMailOpen);
  for (; at != std::string_view::npos; at = FindIgnoringCase(outline, kMailOpen, at)) {
    const std::size_t tagEnd = TemplateTagEnd(outline, at);
    const auto close = FindIgnoringCase(outline, kMailClose, tagEnd);
    if (close == std::string_view::npos) RaiseMissingBlockEnd(kMailClose);
    mails.push_back({at, tagEnd, close, close + kMailClose.size()});
    at = mails.back().end;
  }
  return mails;
}

/// 0 for what is no port.
int PortOf(std::string_view text) {
  text = WithoutOuterBlanks(text);
  if (text.empty()) return kDefaultPort;
  const double port = NumericValue(text);
  const bool valid = port >= 1 && port <= kMostPort && std::floor(port) == port;
  return valid ? static_cast<int>(port) : 0;
}

/// `outline` is the tag with its values blotted out: attributes are looked for in the template's
/// own text alone.
MailMessage MessageOf(std::string_view tag, std::string_view outline, std::string_view body) {
  const auto attribute = [tag, outline](std::string_view name) {
    const auto place = FindTemplateAttribute(outline, name);
    std::string value;
    for (std::size_t i = 0; place && i < place->length; ++i) {
      if (!IsQuote(outline[place->start + i])) value += tag[place->start + i];
    }
    return value;
  };
  MailMessage message;
  message.server = std::string(WithoutOuterBlanks(attribute("server")));
  message.port = PortOf(attribute("port"));
  message.from = attribute("from");
  message.to = attribute("to");
  message.cc = attribute("cc");
  message.bcc = attribute("bcc");
  message.subject = attribute("subject");
  message.html = WithoutOuterBlanks(attribute("html")) == "1";
  message.body = std::string(body);
  return message;
}

/// What the directive leaves in the text.
std::string SendOne(const MailMessage& message, const TemplatePorts& ports) {
  if (ports.mailer == nullptr) return {};
  if (message.server.empty()) return std::string(kFailed) + "no server given";
  if (message.port == 0) return std::string(kFailed) + "no valid port given";
  const std::optional<std::string> fault = ports.mailer->Send(message);
  return fault ? kFailed + *fault : std::string();
}

}  // namespace

std::string SendTemplateMails(const TemplateText& filled, const TemplatePorts& ports) {
  const std::string outline = WithoutValues(filled);
  const std::string_view text = filled.text;
  const std::vector<MailPlace> mails = FindMails(outline);
  std::vector<MailMessage> messages;
  for (const MailPlace& mail : mails) {
    const std::size_t length = mail.tagEnd - mail.start;
    messages.push_back(MessageOf(text.substr(mail.start, length),
                                 std::string_view(outline).substr(mail.start, length),
                                 text.substr(mail.tagEnd + 1, mail.bodyEnd - mail.tagEnd - 1)));
  }
  std::string left;
  std::size_t done = 0;
  for (std::size_t i = 0; i < mails.size(); ++i) {
    left += text.substr(done, mails[i].start - done);
    left += SendOne(messages[i], ports);
    done = mails[i].end;
  }
  return left += text.substr(done);
}

}  // namespace tarvo
