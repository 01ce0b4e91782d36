#pragma once

#include <cstdint>
#include <string>

namespace tarvo {

/// Reasons of a failed probe that are no errors of the sockets layer.
inline constexpr int kNoSocketMade = -1;
inline constexpr int kNameNotAnswered = -2;
inline constexpr int kNameUnknown = -3;
inline constexpr int kNoSuchPort = -4;

/// A failed probe in the operator's words, for example "127.0.0.1:6900: refused". `error` is a
/// Winsock error number or one of the above; for 0 the text is "".
std::string ProbeFailureText(const std::string& host, std::int32_t port, int error);

/// The message of a Winsock error number (10004 to 11004); "Unknown error." for any other.
std::string WinsockErrorText(int code);

}  // namespace tarvo
