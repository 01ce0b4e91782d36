#include "xmldoc/mail/mail_text.h"

#include <array>
#include <cstdint>
#include <cstdio>

#include "xmldoc/mail/mail_header.h"

namespace tarvo {
namespace {

constexpr const char* kNewLine = "\r\n";
constexpr std::size_t kMostLine = 998;

std::string DateText(std::chrono::sys_seconds date) {
  constexpr std::array<const char*, 7> kDays = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  constexpr std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const auto day = std::chrono::floor<std::chrono::days>(date);
  const std::chrono::year_month_day ymd(day);
  const std::chrono::hh_mm_ss time(date - day);
  std::array<char, 64> text;
  std::snprintf(text.data(), text.size(), "%s, %02u %s %04d %02d:%02d:%02d +0000",
                kDays[std::chrono::weekday(day).c_encoding()], static_cast<unsigned>(ymd.day()),
                kMonths[static_cast<unsigned>(ymd.month()) - 1], static_cast<int>(ymd.year()),
                static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count()),
                static_cast<int>(time.seconds().count()));
  return text.data();
}

/// Differs between mails of which anything differs, and says nothing about the sender's machine.
/// `rest` is the mail but for this header.
std::string MessageId(const MailContent& content, std::string_view rest) {
  std::uint64_t hash = 14695981039346656037ULL ^ content.serial;
  for (const char c : rest) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
  std::array<char, 64> text;
  std::snprintf(text.data(), text.size(), "%llx.%016llx",
                static_cast<unsigned long long>(content.date.time_since_epoch().count()),
                static_cast<unsigned long long>(hash));
  const std::string& address = content.from.address;
  return "<" + std::string(text.data()) + address.substr(address.rfind('@')) + ">";
}

/// The body with CR LF at every line end, the last line too.
std::string WithLineEnds(std::string_view body) {
  std::string text;
  text.reserve(body.size() + 2);
  for (std::size_t i = 0; i < body.size(); ++i) {
    if (body[i] != '\r' && body[i] != '\n') {
      text += body[i];
      continue;
    }
    if (body[i] == '\r' && i + 1 < body.size() && body[i + 1] == '\n') ++i;
    text += kNewLine;
  }
  if (!text.empty() && text.back() != '\n') text += kNewLine;
  return text;
}

bool TravelsAsItIs(std::string_view text) {
  std::size_t line = 0;
  for (const char c : text) {
    if (c == '\n') {
      line = 0;
    } else if (!IsPrintableAscii(c) && c != '\t' && c != '\r') {
      return false;
    } else if (++line > kMostLine + 1) {  // with the CR of the line end
      return false;
    }
  }
  return true;
}

/// `text` ends every line with CR LF.
std::string QuotedPrintable(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string encoded;
  std::size_t column = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '\r') {
      encoded += kNewLine;
      column = 0;
      ++i;
      continue;
    }
    const bool endsLine = text[i + 1] == '\r';
    const bool plain = c == '\t' || c == ' ' ? !endsLine : IsPrintableAscii(c) && c != '=';
    const std::size_t width = plain ? 1 : 3;
    if (column + width > kMostMailColumns - 1) {
      encoded += "=\r\n";
      column = 0;
    }
    const auto byte = static_cast<unsigned char>(c);
    if (plain) {
      encoded += c;
    } else {
      encoded += {'=', kDigits[byte >> 4], kDigits[byte & 15]};
    }
    column += width;
  }
  return encoded;
}

}  // namespace

std::string MailText(const MailContent& content) {
  const std::string& charset = content.charset;
  const std::string head =
      AddressHeader("From", {content.from}, charset) + AddressHeader("To", content.to, charset) +
      AddressHeader("Cc", content.cc, charset) + TextHeader("Subject", content.subject, charset) +
      "Date: " + DateText(content.date) + kNewLine;
  const std::string body = WithLineEnds(content.body);
  const bool plain = TravelsAsItIs(body);
  std::string rest = "MIME-Version: 1.0\r\n";
  rest += std::string("Content-Type: text/") + (content.html ? "html" : "plain") +
          "; charset=" + charset + kNewLine;
  rest += std::string("Content-Transfer-Encoding: ") + (plain ? "7bit" : "quoted-printable") +
          kNewLine + kNewLine;
  rest += plain ? body : QuotedPrintable(body);
  return head + "Message-ID: " + MessageId(content, head + rest) + kNewLine + rest;
}

std::string WithDotsStuffed(std::string_view text) {
  std::string stuffed;
  stuffed.reserve(text.size() + 5);
  bool atLineStart = true;
  for (const char c : text) {
    if (atLineStart && c == '.') stuffed += '.';
    stuffed += c;
    atLineStart = c == '\n';
  }
  return stuffed += ".\r\n";
}

}  // namespace tarvo
