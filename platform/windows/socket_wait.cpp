#include "platform/windows/socket_wait.h"

namespace tarvo {
namespace {

// FIONBIO as the call takes it.
constexpr long kNonBlockingMode = static_cast<long>(FIONBIO);

int ErrorOf(SOCKET socket) {
  int error = 0;
  int size = sizeof error;
  return getsockopt(socket, SOL_SOCKET, SO_ERROR, reinterpret_cast<char*>(&error), &size) == 0
             ? error
             : WSAGetLastError();
}

}  // namespace

WaitResult AwaitSocket(SOCKET socket, WaitFor what, std::uint32_t milliseconds) {
  fd_set ready;
  FD_ZERO(&ready);
  ready.fd_count = 1;
  ready.fd_array[0] = socket;
  fd_set failed = ready;
  timeval time{};
  time.tv_sec = static_cast<long>(milliseconds / 1000);
  time.tv_usec = static_cast<long>(milliseconds % 1000) * 1000;
  const int count = select(0, what == WaitFor::Reading ? &ready : nullptr,
                           what == WaitFor::Writing ? &ready : nullptr, &failed, &time);
  if (count == 0) return WaitResult::TimedOut;
  return count > 0 && failed.fd_count == 0 ? WaitResult::Ready : WaitResult::Failed;
}

bool SetBlocking(SOCKET socket, bool blocking) {
  u_long nonBlocking = blocking ? 0 : 1;
  return ioctlsocket(socket, kNonBlockingMode, &nonBlocking) == 0;
}

std::optional<int> ConnectWithin(SOCKET socket, const sockaddr& address, int addressSize,
                                 std::uint32_t milliseconds) {
  if (!SetBlocking(socket, false)) return WSAGetLastError();
  if (connect(socket, &address, addressSize) == 0) return 0;
  const int refusal = WSAGetLastError();
  if (refusal != WSAEWOULDBLOCK) return refusal;
  const WaitResult result = AwaitSocket(socket, WaitFor::Writing, milliseconds);
  if (result == WaitResult::TimedOut) return std::nullopt;
  const int error = ErrorOf(socket);
  return error == 0 && result == WaitResult::Failed ? WSAENOTCONN : error;
}

}  // namespace tarvo
