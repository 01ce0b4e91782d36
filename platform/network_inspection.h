#pragma once

#include <cstdint>
#include <vector>

#include "platform/processes.h"

namespace tarvo {

/// A TCP port of this machine at which a process takes connections.
struct Listener {
  std::uint32_t address = 0;  ///< In network order; 0 means every address of the machine.
  std::uint16_t port = 0;
  ProcessId process = 0;  ///< 0 where the system does not tell.
};

/// The machine's own side of its network. Nothing is sent.
class NetworkInspection {
 public:
  virtual ~NetworkInspection() = default;
  /// All of them, of the fourth version of the protocol; empty where the system tells none.
  virtual std::vector<Listener> Listeners() = 0;
  /// The machine's addresses of that version, each in network order.
  virtual std::vector<std::uint32_t> OwnAddresses() = 0;
};

}  // namespace tarvo
