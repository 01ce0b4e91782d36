#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "platform/sockets.h"

namespace tarvo {

/// One entry of the sockets layer's protocol catalogue, a mirror of Winsock's WSAPROTOCOL_INFOA in
/// the order of that record. The probe reads `AddressFamily` alone.
struct CProtocol {
  std::string ProtocolName;  ///< At most 256 characters.
  std::int32_t MessageSize = 0;
  std::int32_t SecurityScheme = 0;
  std::int32_t NetworkByteOrder = 0;
  std::int32_t ProtocolMaxOffset = 0;
  std::int32_t Protocol = 0;
  std::int32_t SocketType = 0;
  std::int32_t MinSockAddr = 0;
  std::int32_t MaxSockAddr = 0;
  std::int32_t AddressFamily = 0;
  std::int32_t Version = 0;
  std::int32_t CatalogEntryId = 0;
  std::array<std::uint8_t, 16> ProviderId{};  ///< A GUID as it lies in memory.

  // Provider flags, PFL_*.
  bool MatchesProtocolZero = false;
  bool RecommendedProtoEntry = false;
  bool MultipleProtoEntries = false;

  // Service flags, XP1_*.
  bool PartialMessage = false;
  bool IFSHandles = false;
  bool UniRecv = false;
  bool UniSend = false;
  bool QoSSupport = false;
  bool MultipointDataPlane = false;
  bool MultipointControlPlane = false;
  bool SupportMultipoint = false;
  bool SupportBroadcast = false;
  bool DisconnectData = false;
  bool ConnectData = false;
  bool ExpeditedData = false;
  bool GracefulClose = false;
  bool PseudoStream = false;
  bool MessageOriented = false;
  bool GuaranteedOrder = false;
  bool GuaranteedDelivery = false;
  bool Connectionless = false;

  /// Fills every property from an open socket. False, and nothing changed, when the sockets layer
  /// gives no record.
  bool GetBySocketHandle(Sockets& sockets, SocketHandle socket);
};

}  // namespace tarvo
