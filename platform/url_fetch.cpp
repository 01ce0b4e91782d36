#include "platform/url_fetch.h"

#include <algorithm>
#include <string_view>

#include "support/text.h"

namespace tarvo {
namespace {

constexpr int kHttps = 5;
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kBehindScheme = "://";

/// Where the authority begins: after "scheme://" at the beginning of the URL, or at 0.
std::size_t AuthorityOf(std::string_view url) {
  if (url.empty() || !IsLetter(url[0])) return 0;
  std::size_t end = 1;
  while (end < url.size() && (IsLetter(url[end]) || IsDigit(url[end]) || url[end] == '+' ||
                              url[end] == '-' || url[end] == '.')) {
    ++end;
  }
  return url.substr(end).starts_with(kBehindScheme) ? end + kBehindScheme.size() : 0;
}

/// The text between the scheme and the "@" before the host; nothing without such an "@".
struct UserInfo {
  std::size_t start;
  std::size_t length;
};

std::optional<UserInfo> FindUserInfo(std::string_view url) {
  const std::size_t start = AuthorityOf(url);
  // WinINet takes "\" for "/".
  const std::string_view authority =
      url.substr(start, std::min(url.find_first_of("/\\?#", start), url.size()) - start);
  const auto at = authority.rfind('@');
  if (at == std::string_view::npos) return std::nullopt;
  return UserInfo{start, at};
}

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

std::optional<std::string> Decoded(std::string_view text) {
  std::string decoded;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      decoded += text[i];
      continue;
    }
    if (text.size() - i < 3) return std::nullopt;
    const int high = HexDigit(text[i + 1]);
    const int low = HexDigit(text[i + 2]);
    if (high < 0 || low < 0 || high + low == 0) return std::nullopt;
    decoded += static_cast<char>(high * 16 + low);
    i += 2;
  }
  return decoded;
}

/// False when the request cannot have these credentials.
bool TakeCredentials(std::string_view info, FetchRequest& request) {
  const auto colon = std::min(info.find(':'), info.size());
  const auto user = Decoded(info.substr(0, colon));
  const auto password = Decoded(info.substr(std::min(colon + 1, info.size())));
  if (!user || !password) return false;
  if (user->empty()) return password->empty();
  const bool others = !request.userName.empty() || !request.password.empty();
  if (others && (*user != request.userName || *password != request.password)) return false;
  request.userName = *user;
  request.password = *password;
  return true;
}

}  // namespace

std::optional<FetchRequest> PlainRequest(FetchRequest request) {
  request.url = std::string(Trimmed(request.url, kBlanks));
  if (AuthorityOf(request.url) == 0) {
    request.url.insert(0, request.protocol == kHttps ? "https://" : "http://");
  }
  if (const auto info = FindUserInfo(request.url)) {
    const std::string text = request.url.substr(info->start, info->length);
    if (!TakeCredentials(text, request)) return std::nullopt;
    request.url.erase(info->start, info->length + 1);
  }
  return request;
}

std::string WithoutCredentials(std::string url) {
  url = std::string(Trimmed(url, kBlanks));
  if (const auto info = FindUserInfo(url)) url.erase(info->start, info->length + 1);
  return url;
}

}  // namespace tarvo
