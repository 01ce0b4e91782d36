#pragma once

#include <cstdint>

#include "platform/sockets.h"

namespace tarvo {

/// What the probe reads of an entry of the sockets layer's protocol catalogue (Winsock's
/// WSAPROTOCOL_INFOA).
struct CProtocol {
  std::int32_t AddressFamily = 0;  ///< AF_*.

  /// Fills the record from an open socket. False, and nothing changed, when the sockets layer gives
  /// no entry.
  bool GetBySocketHandle(Sockets& sockets, SocketHandle socket);
};

}  // namespace tarvo
