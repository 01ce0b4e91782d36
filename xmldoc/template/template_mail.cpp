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

/// One directive with its two views: what it says, and where only the template's own text shows.
class MailTag {
 public:
  MailTag(std::string_view text, std::string_view outline) : text_(text), outline_(outline) {}

  std::string Attribute(std::string_view name) const {
    const auto place = FindTemplateAttribute(outline_, name);
    std::string value;
    if (!place) return value;
    for (std::size_t i = place->start; i < place->start + place->length; ++i) {
      if (!IsQuote(outline_[i])) value += text_[i];
    }
    return value;
  }

 private:
  std::string_view text_;
  std::string_view outline_;
};

/// 0 for what is no port.
int PortOf(std::string_view text) {
  text = WithoutOuterBlanks(text);
  if (text.empty()) return kDefaultPort;
  const double port = NumericValue(text);
  const bool valid = port >= 1 && port <= kMostPort && std::floor(port) == port;
  return valid ? static_cast<int>(port) : 0;
}

MailMessage MessageOf(const MailTag& tag, std::string_view body) {
  MailMessage message;
  message.server = std::string(WithoutOuterBlanks(tag.Attribute("server")));
  message.port = PortOf(tag.Attribute("port"));
  message.from = tag.Attribute("from");
  message.to = tag.Attribute("to");
  message.cc = tag.Attribute("cc");
  message.bcc = tag.Attribute("bcc");
  message.subject = tag.Attribute("subject");
  message.html = WithoutOuterBlanks(tag.Attribute("html")) == "1";
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
    const MailTag tag(text.substr(mail.start, length),
                      std::string_view(outline).substr(mail.start, length));
    messages.push_back(
        MessageOf(tag, text.substr(mail.tagEnd + 1, mail.bodyEnd - mail.tagEnd - 1)));
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
