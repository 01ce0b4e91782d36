#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "checkup/conf_checks.h"
#include "checkup/finding.h"
#include "core/component.h"
#include "platform/network_inspection.h"

namespace tarvo {

/// What a component's conf file says of its endpoint, as far as it could be read.
struct EndpointFacts {
  bool known = false;                ///< The file was read to its end.
  std::string portText;              ///< The value that counts; "" when no line gives one.
  std::optional<std::int32_t> port;  ///< 0 without a line; nothing for what is no number.
  std::string host = "127.0.0.1";    ///< Without the blanks around it.
};

/// What the values of a file say of the components that it is for.
void TakeEndpoints(const std::vector<KeyValues>& values, bool whole,
                   PerComponent<EndpointFacts>& endpoints);

/// A port that no server can listen at, that ends the launcher's next start, or that two components
/// share: an error at one host, a warning at two, since most servers listen at all addresses.
Findings CheckPorts(const PerComponent<EndpointFacts>& endpoints);

/// How a host's name was resolved.
struct HostFacts {
  enum class Outcome { Address, Unknown, NotAnswered };

  Outcome outcome = Outcome::Unknown;
  std::uint32_t address = 0;  ///< In network order.
  bool own = false;           ///< An address of this machine.
};

/// An address of another machine is a warning where the component is ended when its probe stays
/// unanswered. 0.0.0.0 is none that Windows connects to.
Findings CheckHost(ComponentKind kind, const std::string& host, const HostFacts& facts,
                   bool autokill);

/// Who takes connections at a component's port, and is not the component.
struct HolderFacts {
  ProcessId process = 0;   ///< 0 when the system does not tell.
  std::string executable;  ///< Bare file name; "" when the system does not tell.
};

Finding PortHeldFinding(ComponentKind kind, std::int32_t port, const HolderFacts& holder);

/// The first listener at this port whom a server at this address would collide with.
std::optional<Listener> ListenerAt(const std::vector<Listener>& listeners, std::uint32_t address,
                                   std::int32_t port);

/// Whether the address means this machine: its own ones, and all that begin with 127.
bool IsOwnAddress(std::uint32_t address, const std::vector<std::uint32_t>& own);

/// The key of a component's port, or of its host, and the file that it belongs into.
const ConfigurationKey& KeyOf(ComponentKind kind, ConfigurationKey::Says says);

}  // namespace tarvo
