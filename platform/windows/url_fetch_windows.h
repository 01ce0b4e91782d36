#pragma once

#include "platform/url_fetch.h"

namespace tarvo {

/// Fetches by WinINet: HTTP and HTTPS, past redirections, never from a cache.
///
/// The body counts as complete when it has the length that the server announced; without one, when
/// the server ends the connection. An answer other than 200 to 299 is no body. User name and
/// password, the request's or the URL's own, are sent when the server asks for them. With a proxy,
/// the access type is that of a named proxy; without one, 1 means direct and any other the system's
/// default. The request timeout covers all steps together: when it is over, the request is
/// cancelled at any stage.
class WindowsUrlFetch : public UrlFetch {
 public:
  std::optional<std::string> Fetch(const FetchRequest& request) override;
};

}  // namespace tarvo
