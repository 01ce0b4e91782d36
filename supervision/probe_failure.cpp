#include "supervision/probe_failure.h"

#include "platform/sockets.h"
#include "supervision/winsock_error_text.h"
#include "support/text.h"

namespace tarvo {
namespace {

std::string Reason(int error) {
  switch (error) {
    case kConnectRefused:
      return "refused";
    case kConnectTimedOut:
      return "no answer in 1 s";
    case kNameUnknown:
      return "the name is unknown";
    case kNameNotAnswered:
      return "no answer in 1 s from the name server";
    case kNoSuchPort:
      return "there is no such port";
    case kNoSocketMade:
      return "no socket to connect with";
    default:
      return WinsockErrorText(error);
  }
}

}  // namespace

std::string ProbeFailureText(const std::string& host, std::int32_t port, int error) {
  if (error == 0) return {};
  return std::string(Trimmed(host)) + ":" + std::to_string(port) + ": " + Reason(error);
}

}  // namespace tarvo
