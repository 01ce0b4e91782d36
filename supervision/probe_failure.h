#pragma once

#include <cstdint>
#include <string>

namespace tarvo {

/// Reasons of a probe that are no error of the sockets layer.
inline constexpr int kNoSocketMade = -1;
inline constexpr int kNameNotAnswered = -2;
inline constexpr int kNameUnknown = -3;
inline constexpr int kNoSuchPort = -4;

/// What the operator is told of a probe that found nobody listening, for example
/// "127.0.0.1:6900: refused". `error` is a Winsock error number or one of the above; the words for
/// 0 are none: "".
std::string ProbeFailureText(const std::string& host, std::int32_t port, int error);

}  // namespace tarvo
