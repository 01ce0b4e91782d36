#include "platform/windows/sockets_windows.h"

#include <winsock2.h>

#include <cstring>

namespace tarvo {
namespace {

// The buffer has room for either form of the record; both begin alike, up to the name.
static_assert(sizeof(WSAPROTOCOL_INFOA) <= sizeof(ProtocolRecord));
static_assert(sizeof(WSAPROTOCOL_INFOW) == sizeof(ProtocolRecord));
static_assert(sizeof(sockaddr_in) == sizeof(SocketAddress));

SOCKET ToNative(SocketHandle socket) { return static_cast<SOCKET>(socket); }

}  // namespace

int WindowsSockets::Start(std::uint16_t version) {
  WSADATA data{};
  return WSAStartup(version, &data);
}

void WindowsSockets::Stop() { WSACleanup(); }

SocketHandle WindowsSockets::Create(int addressFamily, int type, int protocol) {
  return static_cast<SocketHandle>(socket(addressFamily, type, protocol));
}

void WindowsSockets::Close(SocketHandle socket) { closesocket(ToNative(socket)); }

std::optional<ProtocolRecord> WindowsSockets::ReadOption(SocketHandle socket, int level,
                                                         int option) {
  ProtocolRecord record{};
  int length = static_cast<int>(record.size());
  if (getsockopt(ToNative(socket), level, option, reinterpret_cast<char*>(record.data()),
                 &length) != 0) {
    return std::nullopt;
  }
  return record;
}

std::uint32_t WindowsSockets::DottedAddress(const std::string& host) {
  return static_cast<std::uint32_t>(inet_addr(host.c_str()));
}

std::optional<std::vector<std::uint8_t>> WindowsSockets::FirstAddressOf(const std::string& host) {
  if (host.empty()) return std::nullopt;
  const hostent* entry = gethostbyname(host.c_str());
  if (entry == nullptr || entry->h_addr_list == nullptr || entry->h_addr_list[0] == nullptr) {
    return std::nullopt;
  }
  std::vector<std::uint8_t> address(static_cast<std::size_t>(entry->h_length));
  if (!address.empty()) std::memcpy(address.data(), entry->h_addr_list[0], address.size());
  return address;
}

int WindowsSockets::ConnectTo(SocketHandle socket, const SocketAddress& address) {
  sockaddr native{};
  std::memcpy(&native, address.data(), sizeof(native));
  return connect(ToNative(socket), &native, static_cast<int>(sizeof(native)));
}

}  // namespace tarvo
