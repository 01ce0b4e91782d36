#include "platform/windows/url_fetch_windows.h"

#include "platform/windows/handle_windows.h"
// After windows.h, which it needs.
#include <wininet.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <limits>
#include <string>

namespace tarvo {
namespace {

constexpr int kDirectAccess = 1;
constexpr DWORD kUnauthorized = 401;
constexpr DWORD kNoLimit = INFINITE;

struct InternetHandleTraits {
  using Value = HINTERNET;
  static bool IsNone(Value value) { return value == nullptr; }
  static void Close(Value value) { InternetCloseHandle(value); }
};
using InternetHandle = UniqueHandle<InternetHandleTraits>;

struct Target {
  std::string host;
  std::string path;
  INTERNET_PORT port = 0;
  bool secure = false;
};

std::optional<Target> Crack(const std::string& url) {
  URL_COMPONENTSA parts{};
  parts.dwStructSize = sizeof(parts);
  parts.dwHostNameLength = parts.dwUrlPathLength = parts.dwExtraInfoLength = 1;
  if (InternetCrackUrlA(url.c_str(), 0, 0, &parts) == 0) return std::nullopt;
  const bool secure = parts.nScheme == INTERNET_SCHEME_HTTPS;
  if (!secure && parts.nScheme != INTERNET_SCHEME_HTTP) return std::nullopt;
  Target target{std::string(parts.lpszHostName, parts.dwHostNameLength), {}, parts.nPort, secure};
  if (parts.lpszUrlPath != nullptr) target.path.assign(parts.lpszUrlPath, parts.dwUrlPathLength);
  if (parts.lpszExtraInfo != nullptr) {
    target.path.append(parts.lpszExtraInfo, parts.dwExtraInfoLength);
  }
  target.path = target.path.substr(0, target.path.find('#'));
  if (target.path.empty()) target.path = "/";
  return target;
}

InternetHandle OpenSession(const FetchRequest& request) {
  if (!request.proxy.empty()) {
    return InternetHandle(InternetOpenA("Tarvo Launcher", INTERNET_OPEN_TYPE_PROXY,
                                        request.proxy.c_str(), nullptr, 0));
  }
  const DWORD access = request.accessType == kDirectAccess ? INTERNET_OPEN_TYPE_DIRECT
                                                           : INTERNET_OPEN_TYPE_PRECONFIG;
  return InternetHandle(InternetOpenA("Tarvo Launcher", access, nullptr, nullptr, 0));
}

DWORD LimitOf(const FetchRequest& request) {
  if (request.requestTimeout <= 0) return kNoLimit;
  constexpr long kMostSeconds = 24 * 60 * 60;
  return static_cast<DWORD>(std::min(request.requestTimeout, kMostSeconds)) * 1000;
}

void LimitEachStep(HINTERNET handle, DWORD milliseconds) {
  for (const int option : {INTERNET_OPTION_CONNECT_TIMEOUT, INTERNET_OPTION_SEND_TIMEOUT,
                           INTERNET_OPTION_RECEIVE_TIMEOUT}) {
    InternetSetOptionA(handle, static_cast<DWORD>(option), &milliseconds, sizeof milliseconds);
  }
  DWORD once = 1;
  InternetSetOptionA(handle, INTERNET_OPTION_CONNECT_RETRIES, &once, sizeof once);
}

/// A request that is closed when its time is over, in the midst of whatever call it is in: that is
/// how WinINet lets one be cancelled. The steps' own limits cannot do it, as each begins anew.
class TimedRequest {
 public:
  TimedRequest(HINTERNET request, DWORD milliseconds) : request_(request) {
    if (request == nullptr || milliseconds == kNoLimit) return;
    CreateTimerQueueTimer(&timer_, nullptr, &TimedRequest::OnTime, this, milliseconds, 0,
                          WT_EXECUTEONLYONCE);
  }
  ~TimedRequest() {
    // Waits for a callback that is running, so that none comes later.
    if (timer_ != nullptr) DeleteTimerQueueTimer(nullptr, timer_, INVALID_HANDLE_VALUE);
    Close();
  }
  TimedRequest(const TimedRequest&) = delete;
  TimedRequest& operator=(const TimedRequest&) = delete;

  /// Null once the time is over.
  HINTERNET Get() const { return request_.load(); }

 private:
  static VOID CALLBACK OnTime(PVOID self, BOOLEAN) noexcept {
    static_cast<TimedRequest*>(self)->Close();
  }
  void Close() {
    if (const HINTERNET request = request_.exchange(nullptr)) InternetCloseHandle(request);
  }

  std::atomic<HINTERNET> request_;
  HANDLE timer_ = nullptr;
};

std::optional<DWORD> Number(HINTERNET request, DWORD header) {
  DWORD value = 0;
  DWORD size = sizeof value;
  if (HttpQueryInfoA(request, header | HTTP_QUERY_FLAG_NUMBER, &value, &size, nullptr) == 0) {
    return std::nullopt;
  }
  return value;
}

bool ReadBody(const TimedRequest& request, std::string& body) {
  constexpr std::size_t kLongest = std::numeric_limits<std::int32_t>::max();
  std::array<char, 65536> part;
  body.clear();
  for (;;) {
    DWORD got = 0;
    if (InternetReadFile(request.Get(), part.data(), part.size(), &got) == 0) return false;
    if (got == 0) return request.Get() != nullptr;
    if (body.size() + got > kLongest) return false;
    body.append(part.data(), got);
  }
}

void SetText(HINTERNET request, DWORD option, const std::string& text) {
  std::string copy = text;
  InternetSetOptionA(request, option, copy.data(), static_cast<DWORD>(copy.size()));
}

/// Sends the request, a second time with the credentials when the server asks for them. The status
/// of the answer, or nothing.
std::optional<DWORD> Send(const TimedRequest& timed, const FetchRequest& request) {
  for (bool again = false;; again = true) {
    if (HttpSendRequestA(timed.Get(), nullptr, 0, nullptr, 0) == 0) return std::nullopt;
    const std::optional<DWORD> status = Number(timed.Get(), HTTP_QUERY_STATUS_CODE);
    if (status != kUnauthorized || again || request.userName.empty()) return status;
    std::string refusal;
    if (!ReadBody(timed, refusal)) return std::nullopt;
    SetText(timed.Get(), INTERNET_OPTION_USERNAME, request.userName);
    SetText(timed.Get(), INTERNET_OPTION_PASSWORD, request.password);
  }
}

HINTERNET OpenRequest(HINTERNET connection, const Target& target) {
  const DWORD flags = INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE |
                      INTERNET_FLAG_PRAGMA_NOCACHE | INTERNET_FLAG_NO_COOKIES |
                      INTERNET_FLAG_NO_UI | (target.secure ? INTERNET_FLAG_SECURE : 0);
  return HttpOpenRequestA(connection, "GET", target.path.c_str(), nullptr, nullptr, nullptr, flags,
                          0);
}

const char* TextOrNone(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

}  // namespace

std::optional<std::string> WindowsUrlFetch::Fetch(const FetchRequest& given) {
  const std::optional<FetchRequest> plain = PlainRequest(given);
  if (!plain) return std::nullopt;
  const FetchRequest& request = *plain;
  const std::optional<Target> target = Crack(request.url);
  if (!target) return std::nullopt;
  const InternetHandle session = OpenSession(request);
  if (!session.Valid()) return std::nullopt;
  const DWORD limit = LimitOf(request);
  LimitEachStep(session.Get(), limit);
  const InternetHandle connection(InternetConnectA(
      session.Get(), target->host.c_str(), target->port, TextOrNone(request.userName),
      TextOrNone(request.password), INTERNET_SERVICE_HTTP, 0, 0));
  if (!connection.Valid()) return std::nullopt;
  const TimedRequest timed(OpenRequest(connection.Get(), *target), limit);
  if (timed.Get() == nullptr) return std::nullopt;
  LimitEachStep(timed.Get(), limit);  // Wine keeps the limits of a session to itself.

  const std::optional<DWORD> status = Send(timed, request);
  if (!status || *status < 200 || *status > 299) return std::nullopt;
  const std::optional<DWORD> length = Number(timed.Get(), HTTP_QUERY_CONTENT_LENGTH);
  std::string body;
  if (!ReadBody(timed, body)) return std::nullopt;
  if (length && body.size() != *length) return std::nullopt;
  return body;
}

}  // namespace tarvo
