#pragma once

#include <winsock2.h>

#include <cstdint>
#include <optional>

namespace tarvo {

enum class WaitFor { Reading, Writing };
enum class WaitResult { Ready, TimedOut, Failed };

/// Waits until a socket can be read or written without blocking. A connect that fails shows as
/// Failed. By `select`: WSAPoll reports nothing of a failed connect on older systems.
WaitResult AwaitSocket(SOCKET socket, WaitFor what, std::uint32_t milliseconds);

/// Whether calls on the socket wait for the network. False when the system refuses.
bool SetBlocking(SOCKET socket, bool blocking);

/// connect, with a limit: 0 or the Winsock error, nothing when the time is over first. The socket
/// does not block afterwards.
std::optional<int> ConnectWithin(SOCKET socket, const sockaddr& address, int addressSize,
                                 std::uint32_t milliseconds);

}  // namespace tarvo
