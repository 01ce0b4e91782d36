#pragma once

#include <optional>
#include <string>

namespace tarvo {

/// What is fetched, and how.
struct FetchRequest {
  std::string url;
  int protocol = 4;      ///< 4 HTTP, 5 HTTPS; decides for a URL that names no scheme.
  std::string userName;  ///< Empty: no credentials are sent, but for those in the URL.
  std::string password;
  std::string proxy;         ///< "host:port"; empty: the system's own choice.
  int accessType = 0;        ///< 0: the system's default access.
  long requestTimeout = 60;  ///< Seconds for the whole request; 0 or less: no limit.
};

/// Fetches the body that a URL names.
class UrlFetch {
 public:
  virtual ~UrlFetch() = default;
  /// The whole body, or nothing when it could not be had complete and in time, or when the
  /// credentials in the URL cannot be used. Raises std::bad_alloc when memory runs out.
  virtual std::optional<std::string> Fetch(const FetchRequest& request) = 0;
};

/// The request as an adapter carries it out: its URL begins with a scheme and holds no credentials;
/// those that stood in front of the host ("user:password@", %-escapes decoded) are the request's.
/// A scheme is looked for at the beginning alone, "example.com/?next=http://x" has none.
///
/// Nothing when the URL's credentials cannot be used: an escape that is invalid or encodes a zero
/// byte, a password without a user name, or others than the request itself names.
std::optional<FetchRequest> PlainRequest(FetchRequest request);

/// The URL without the credentials before its host and without outer blanks, for records that
/// anyone may read.
std::string WithoutCredentials(std::string url);

}  // namespace tarvo
