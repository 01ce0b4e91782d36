#include "platform/windows/sockets_windows.h"

#include <winsock2.h>

#include <cstring>

#include "platform/windows/socket_wait.h"

namespace tarvo {
namespace {

// The buffer has room for either form of the record; both begin alike, up to the name.
static_assert(sizeof(WSAPROTOCOL_INFOA) <= sizeof(ProtocolRecord));
static_assert(sizeof(WSAPROTOCOL_INFOW) == sizeof(ProtocolRecord));
static_assert(sizeof(sockaddr_in) == sizeof(SocketAddress));

static_assert(kConnectTimedOut == WSAETIMEDOUT && kConnectRefused == WSAECONNREFUSED);

// SIO_TCP_INITIAL_RTO as the call takes it.
constexpr DWORD kInitialRtoCode = 0x98000011;

/// TCP_INITIAL_RTO_PARAMETERS, which older headers lack.
struct InitialRto {
  USHORT roundTrip = 0xFFFF;  ///< As it is.
  UCHAR repeats = 0;
};
static_assert(sizeof(InitialRto) == 4);
constexpr UCHAR kNoRepeat = 0xFE;  ///< From Windows 10, build 16299, on.
constexpr UCHAR kFewestRepeats = 1;

SOCKET AsSocket(SocketHandle socket) { return static_cast<SOCKET>(socket); }

bool LimitRepeats(SOCKET socket, UCHAR repeats) {
  InitialRto wanted;
  wanted.repeats = repeats;
  DWORD returned = 0;
  return WSAIoctl(socket, kInitialRtoCode, &wanted, sizeof wanted, nullptr, 0, &returned, nullptr,
                  nullptr) == 0;
}

}  // namespace

int WindowsSockets::Start(std::uint16_t version) {
  WSADATA data{};
  return WSAStartup(version, &data);
}

void WindowsSockets::Stop() {
  lookUps_.Forget();
  WSACleanup();
}

SocketHandle WindowsSockets::Create(int addressFamily, int type, int protocol) {
  return static_cast<SocketHandle>(socket(addressFamily, type, protocol));
}

void WindowsSockets::Close(SocketHandle socket) { closesocket(AsSocket(socket)); }

std::optional<ProtocolRecord> WindowsSockets::ReadOption(SocketHandle socket, int level,
                                                         int option) {
  ProtocolRecord record{};
  int length = static_cast<int>(record.size());
  if (getsockopt(AsSocket(socket), level, option, reinterpret_cast<char*>(record.data()),
                 &length) != 0) {
    return std::nullopt;
  }
  return record;
}

std::uint32_t WindowsSockets::DottedAddress(const std::string& host) {
  return static_cast<std::uint32_t>(inet_addr(host.c_str()));
}

HostAnswer WindowsSockets::FirstAddressOf(const std::string& host, std::uint32_t milliseconds) {
  if (host.empty()) return {LookUp::Unknown, {}};
  return lookUps_.FirstAddressOf(host, milliseconds);
}

bool WindowsSockets::SendFirstPacketOnce(SocketHandle socket) {
  return LimitRepeats(AsSocket(socket), kNoRepeat) ||
         LimitRepeats(AsSocket(socket), kFewestRepeats);
}

int WindowsSockets::ConnectTo(SocketHandle socket, const SocketAddress& address,
                              std::uint32_t milliseconds) {
  sockaddr native{};
  std::memcpy(&native, address.data(), sizeof(native));
  const SOCKET own = AsSocket(socket);
  const std::optional<int> error =
      ConnectWithin(own, native, static_cast<int>(sizeof(native)), milliseconds);
  SetBlocking(own, true);
  return error.value_or(kConnectTimedOut);
}

}  // namespace tarvo
