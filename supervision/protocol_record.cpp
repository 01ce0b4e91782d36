#include "supervision/protocol_record.h"

#include <cstring>

namespace tarvo {
namespace {

constexpr int kSocketLevel = 0xFFFF;         // SOL_SOCKET
constexpr int kProtocolInfoOption = 0x2004;  // SO_PROTOCOL_INFOA

// The same in 32-bit and 64-bit programs: the structure holds no pointer.
constexpr std::size_t kAddressFamilyOffset = 76;

}  // namespace

bool CProtocol::GetBySocketHandle(Sockets& sockets, SocketHandle socket) {
  const auto record = sockets.ReadOption(socket, kSocketLevel, kProtocolInfoOption);
  if (!record) return false;
  std::memcpy(&AddressFamily, record->data() + kAddressFamilyOffset, sizeof AddressFamily);
  return true;
}

}  // namespace tarvo
