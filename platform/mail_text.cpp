#include "platform/mail_text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>

namespace tarvo {
namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr std::size_t kMostLine = 998;
constexpr std::size_t kNiceLine = 76;
constexpr std::size_t kMostEncodedWord = 75;

bool IsPrintable(char c) { return c >= ' ' && c <= '~'; }
bool AllPrintable(std::string_view text) {
  return std::all_of(text.begin(), text.end(), IsPrintable);
}

std::string Base64(std::string_view bytes) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::size_t given = std::min<std::size_t>(3, bytes.size() - i);
    std::uint32_t bits = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      bits = bits << 8 | (k < given ? static_cast<unsigned char>(bytes[i + k]) : 0U);
    }
    for (std::size_t k = 0; k < 4; ++k) {
      text += k <= given ? kDigits[bits >> (18 - 6 * k) & 63] : '=';
    }
  }
  return text;
}

/// Encoded words, each on a line of its own.
std::string EncodedWords(std::string_view text, const std::string& charset) {
  const std::string start = "=?" + charset + "?B?";
  const std::size_t room = kMostEncodedWord - start.size() - 2;
  const std::size_t bytes = room / 4 * 3;
  std::string words;
  for (std::size_t i = 0; i < text.size(); i += bytes) {
    if (i > 0) words += "\r\n ";
    words += start + Base64(text.substr(i, bytes)) + "?=";
  }
  return words;
}

/// The text folded at blanks into lines of kNiceLine; empty when a word is too long for that.
std::string Folded(std::string_view text, std::size_t column) {
  std::string folded;
  while (!text.empty()) {
    const auto end = std::min(text.find(' ', 1), text.size());
    if (end > kNiceLine) return {};
    // A line of blanks alone would end the headers for some readers.
    const bool fold = column + end > kNiceLine && text[0] == ' ' && end > 1;
    if (fold) folded += kLineEnd;
    column = (fold ? 0 : column) + end;
    if (column > kMostLine) return {};
    folded += text.substr(0, end);
    text.remove_prefix(end);
  }
  return folded;
}

std::string HeaderText(std::string_view text, std::size_t column, const std::string& charset) {
  if (text.empty()) return {};
  const bool plain = AllPrintable(text) && text.find("=?") == std::string_view::npos &&
                     text.front() != ' ' && text.back() != ' ';
  const std::string folded = plain ? Folded(text, column) : std::string();
  return folded.empty() ? EncodedWords(text, charset) : folded;
}

std::string NameText(const std::string& given, const std::string& charset) {
  const std::string name = InOneLine(given);
  constexpr std::size_t kMostQuoted = 60;
  if (!AllPrintable(name) || name.size() > kMostQuoted) return EncodedWords(name, charset);
  std::string quoted = "\"";
  for (const char c : name) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + "\"";
}

void AddAddresses(std::string& text, const char* header, const std::vector<MailAddress>& addresses,
                  const std::string& charset) {
  if (addresses.empty()) return;
  text += header;
  for (std::size_t i = 0; i < addresses.size(); ++i) {
    text += i == 0 ? ": " : ",\r\n ";
    const MailAddress& one = addresses[i];
    text +=
        one.name.empty() ? one.address : NameText(one.name, charset) + "\r\n <" + one.address + ">";
  }
  text += kLineEnd;
}

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

/// Differs between mails that differ, and says nothing about the sender's machine.
std::string MessageId(const MailContent& content) {
  std::uint64_t hash = 14695981039346656037ULL;
  const auto add = [&hash](std::string_view text) {
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
  };
  add(content.subject);
  add(content.body);
  for (const MailAddress& one : content.to) add(one.address);
  std::array<char, 64> text;
  std::snprintf(text.data(), text.size(), "%llx.%016llx",
                static_cast<unsigned long long>(content.date.time_since_epoch().count()),
                static_cast<unsigned long long>(hash));
  return "<" + std::string(text.data()) +
         content.from.address.substr(content.from.address.find('@')) + ">";
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
    text += kLineEnd;
  }
  if (!text.empty() && text.back() != '\n') text += kLineEnd;
  return text;
}

bool TravelsAsItIs(std::string_view text) {
  std::size_t line = 0;
  for (const char c : text) {
    if (c == '\n') {
      line = 0;
    } else if (!IsPrintable(c) && c != '\t' && c != '\r') {
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
      encoded += kLineEnd;
      column = 0;
      ++i;
      continue;
    }
    const bool endsLine = text[i + 1] == '\r';
    const bool plain = c == '\t' || c == ' ' ? !endsLine : IsPrintable(c) && c != '=';
    const std::size_t width = plain ? 1 : 3;
    if (column + width > kNiceLine - 1) {
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
  std::string text;
  AddAddresses(text, "From", {content.from}, content.charset);
  AddAddresses(text, "To", content.to, content.charset);
  AddAddresses(text, "Cc", content.cc, content.charset);
  constexpr std::string_view kSubject = "Subject: ";
  text += kSubject;
  text += HeaderText(InOneLine(content.subject), kSubject.size(), content.charset) + kLineEnd;
  text += "Date: " + DateText(content.date) + kLineEnd;
  text += "Message-ID: " + MessageId(content) + kLineEnd;
  text += "MIME-Version: 1.0\r\n";
  const std::string body = WithLineEnds(content.body);
  const bool plain = TravelsAsItIs(body);
  text += std::string("Content-Type: text/") + (content.html ? "html" : "plain") +
          "; charset=" + content.charset + kLineEnd;
  text += std::string("Content-Transfer-Encoding: ") + (plain ? "7bit" : "quoted-printable") +
          kLineEnd + kLineEnd;
  return text + (plain ? body : QuotedPrintable(body));
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
