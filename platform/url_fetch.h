#pragma once

#include <optional>
#include <string>

namespace tarvo {

/// What is fetched, and how.
struct FetchRequest {
  std::string url;
  int protocol = 4;      ///< 4 HTTP, 5 HTTPS; decides for a URL that names no scheme.
  std::string userName;  ///< Empty: no credentials are sent.
  std::string password;
  std::string proxy;         ///< "host:port"; empty: the system's own choice.
  int accessType = 0;        ///< 0: the system's default access.
  long requestTimeout = 60;  ///< Seconds for the whole request; 0 or less: no limit.
};

/// Fetches the body that a URL names.
class UrlFetch {
 public:
  virtual ~UrlFetch() = default;
  /// The whole body, or nothing when it could not be had complete and in time.
  virtual std::optional<std::string> Fetch(const FetchRequest& request) = 0;
};

}  // namespace tarvo
