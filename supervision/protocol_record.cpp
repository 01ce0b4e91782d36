#include "supervision/protocol_record.h"

#include <algorithm>
#include <cstring>

namespace tarvo {
namespace {

constexpr int kSocketLevel = 0xFFFF;         // SOL_SOCKET
constexpr int kProtocolInfoOption = 0x2004;  // SO_PROTOCOL_INFOA

// Offsets in WSAPROTOCOL_INFOA, the same in 32-bit and 64-bit programs: it holds no pointer.
constexpr std::size_t kServiceFlags = 0;
constexpr std::size_t kProviderFlags = 16;
constexpr std::size_t kProviderId = 20;
constexpr std::size_t kCatalogEntryId = 36;
constexpr std::size_t kVersion = 72;  // Behind the protocol chain: a length and seven entries.
constexpr std::size_t kAddressFamily = 76;
constexpr std::size_t kMaxSockAddr = 80;
constexpr std::size_t kMinSockAddr = 84;
constexpr std::size_t kSocketType = 88;
constexpr std::size_t kProtocol = 92;
constexpr std::size_t kProtocolMaxOffset = 96;
constexpr std::size_t kNetworkByteOrder = 100;
constexpr std::size_t kSecurityScheme = 104;
constexpr std::size_t kMessageSize = 108;
constexpr std::size_t kProtocolName = 116;  // A reserved number stands before it.
constexpr std::size_t kProtocolNameSize = 256;

static_assert(kProtocolName + kProtocolNameSize <= std::tuple_size_v<ProtocolRecord>);

std::int32_t NumberAt(const ProtocolRecord& record, std::size_t offset) {
  std::int32_t number = 0;
  std::memcpy(&number, record.data() + offset, sizeof number);
  return number;
}

std::string TextAt(const ProtocolRecord& record, std::size_t offset, std::size_t size) {
  const auto* begin = record.data() + offset;
  return std::string(begin, std::find(begin, begin + size, std::uint8_t{0}));
}

void ReadFlags(const ProtocolRecord& record, CProtocol& protocol) {
  const auto provider = static_cast<std::uint32_t>(NumberAt(record, kProviderFlags));
  protocol.MultipleProtoEntries = provider >> 0 & 1;
  protocol.RecommendedProtoEntry = provider >> 1 & 1;
  protocol.MatchesProtocolZero = provider >> 3 & 1;

  const auto service = static_cast<std::uint32_t>(NumberAt(record, kServiceFlags));
  protocol.Connectionless = service >> 0 & 1;
  protocol.GuaranteedDelivery = service >> 1 & 1;
  protocol.GuaranteedOrder = service >> 2 & 1;
  protocol.MessageOriented = service >> 3 & 1;
  protocol.PseudoStream = service >> 4 & 1;
  protocol.GracefulClose = service >> 5 & 1;
  protocol.ExpeditedData = service >> 6 & 1;
  protocol.ConnectData = service >> 7 & 1;
  protocol.DisconnectData = service >> 8 & 1;
  protocol.SupportBroadcast = service >> 9 & 1;
  protocol.SupportMultipoint = service >> 10 & 1;
  protocol.MultipointControlPlane = service >> 11 & 1;
  protocol.MultipointDataPlane = service >> 12 & 1;
  protocol.QoSSupport = service >> 13 & 1;
  protocol.UniSend = service >> 15 & 1;
  protocol.UniRecv = service >> 16 & 1;
  protocol.IFSHandles = service >> 17 & 1;
  protocol.PartialMessage = service >> 18 & 1;
}

}  // namespace

bool CProtocol::GetBySocketHandle(Sockets& sockets, SocketHandle socket) {
  const auto record = sockets.ReadOption(socket, kSocketLevel, kProtocolInfoOption);
  if (!record) return false;
  ReadFlags(*record, *this);
  std::copy_n(record->begin() + kProviderId, ProviderId.size(), ProviderId.begin());
  CatalogEntryId = NumberAt(*record, kCatalogEntryId);
  Version = NumberAt(*record, kVersion);
  AddressFamily = NumberAt(*record, kAddressFamily);
  MaxSockAddr = NumberAt(*record, kMaxSockAddr);
  MinSockAddr = NumberAt(*record, kMinSockAddr);
  SocketType = NumberAt(*record, kSocketType);
  Protocol = NumberAt(*record, kProtocol);
  ProtocolMaxOffset = NumberAt(*record, kProtocolMaxOffset);
  NetworkByteOrder = NumberAt(*record, kNetworkByteOrder);
  SecurityScheme = NumberAt(*record, kSecurityScheme);
  MessageSize = NumberAt(*record, kMessageSize);
  ProtocolName = TextAt(*record, kProtocolName, kProtocolNameSize);
  return true;
}

}  // namespace tarvo
