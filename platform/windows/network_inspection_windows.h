#pragma once

#include "platform/network_inspection.h"

namespace tarvo {

/// The tables of the system's IP helper library, which is loaded by the first question.
class WindowsNetworkInspection : public NetworkInspection {
 public:
  std::vector<Listener> Listeners() override;
  std::vector<std::uint32_t> OwnAddresses() override;
};

}  // namespace tarvo
