#include "checkup/endpoint_checks.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <limits>

#include "support/text.h"

namespace tarvo {
namespace {

using Says = ConfigurationKey::Says;

constexpr std::size_t kLongestQuoted = 40;

/// A value as it can be shown on one line; one that bare line feeds make longer is cut.
std::string Shown(std::string_view text) {
  const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
  const bool cut = line.size() < text.size() || line.size() > kLongestQuoted;
  return std::string(Trimmed(line.substr(0, kLongestQuoted))) + (cut ? "..." : "");
}

std::string PortAdvice(ComponentKind kind) {
  const ConfigurationKey& key = KeyOf(kind, Says::Port);
  return std::string("Set \"") + key.key + "\" in conf\\" + key.file +
         " to a number from 1 to 65535, and start the launcher again.";
}

Finding PortFinding(ComponentKind kind, const std::string& wrong) {
  return {"port", Severity::Error, NameOf(kind), wrong, PortAdvice(kind)};
}

std::optional<Finding> FindingOfPort(ComponentKind kind, const EndpointFacts& endpoint) {
  if (!endpoint.port) {
    return PortFinding(kind, "The port \"" + Shown(endpoint.portText) +
                                 "\" is no number, and ends the launcher's next start.");
  }
  const std::int32_t port = *endpoint.port;
  if (port == 0 && !endpoint.known) return std::nullopt;
  if (port == 0) return PortFinding(kind, "The port is 0, so nothing can be probed.");
  if (port < 0 || port > std::numeric_limits<std::uint16_t>::max()) {
    return PortFinding(kind, "The port " + std::to_string(port) + " is out of range.");
  }
  return std::nullopt;
}

bool SamePort(const EndpointFacts& one, const EndpointFacts& other) {
  return one.port && one.port == other.port && *one.port > 0;
}

Finding FindingOfBoth(ComponentKind one, ComponentKind other, std::int32_t port, bool oneHost) {
  const std::string both = "Both have the port " + std::to_string(port);
  const char* const why = oneHost
                              ? ", which only one of them can listen at."
                              : ", so one that listens at every address keeps the other from it.";
  return {"port", oneHost ? Severity::Error : Severity::Warning,
          std::string(NameOf(one)) + " and " + NameOf(other), both + why,
          "Give each component a port of its own in the conf files."};
}

/// What is wrong with a host that has no address.
std::string WhyNoAddress(HostFacts::Outcome outcome) {
  if (outcome == HostFacts::Outcome::Unknown) {
    return "does not resolve, so each probe fails as if the server were frozen.";
  }
  return "was not resolved within a second, which is as long as a probe waits for it.";
}

}  // namespace

const ConfigurationKey& KeyOf(ComponentKind kind, Says says) {
  return *std::find_if(
      std::begin(kConfigurationKeys), std::end(kConfigurationKeys),
      [&](const ConfigurationKey& key) { return key.component == kind && key.says == says; });
}

void TakeEndpoints(const std::vector<KeyValues>& values, bool whole,
                   PerComponent<EndpointFacts>& endpoints) {
  for (const KeyValues& value : values) {
    if (value.key->says == Says::ServerName) continue;
    EndpointFacts& endpoint = endpoints[value.key->component];
    if (value.key->says == Says::Host) {
      if (value.lines > 0) endpoint.host = value.last;
      continue;
    }
    endpoint.known = whole;
    endpoint.portText = value.noNumber.value_or(value.last);
    endpoint.port = value.number.value_or(0);
    if (value.noNumber) endpoint.port.reset();
  }
}

Findings CheckPorts(const PerComponent<EndpointFacts>& endpoints) {
  Findings findings;
  for (ComponentKind kind : kComponents) {
    if (const auto found = FindingOfPort(kind, endpoints[kind])) findings.push_back(*found);
  }
  for (ComponentKind one : kComponents) {
    for (ComponentKind other : kComponents) {
      if (one >= other || !SamePort(endpoints[one], endpoints[other])) continue;
      const bool oneHost = LowerCase(endpoints[one].host) == LowerCase(endpoints[other].host);
      findings.push_back(FindingOfBoth(one, other, *endpoints[one].port, oneHost));
    }
  }
  return findings;
}

Findings CheckHost(ComponentKind kind, const std::string& host, const HostFacts& facts,
                   bool autokill) {
  const std::string quoted = "The host \"" + Shown(host) + "\" ";
  if (facts.outcome != HostFacts::Outcome::Address) {
    const bool unknown = facts.outcome == HostFacts::Outcome::Unknown;
    const ConfigurationKey& key = KeyOf(kind, Says::Host);
    return {{"host", unknown ? Severity::Error : Severity::Warning, NameOf(kind),
             quoted + WhyNoAddress(facts.outcome),
             std::string("Correct \"") + key.key + "\" in conf\\" + key.file +
                 ", or the name server."}};
  }
  if (facts.own) return {};
  const ConfigurationKey& key = KeyOf(kind, Says::Host);
  if (facts.address == 0) {
    return {{"host", Severity::Error, NameOf(kind),
             quoted + "is none that can be connected to, so no probe is ever answered.",
             std::string("Put the address that players get into \"") + key.key + "\" in conf\\" +
                 key.file + "."}};
  }
  if (!autokill) {
    return {{"host", Severity::Note, NameOf(kind),
             quoted + "is an address of another machine, where this launcher starts and ends "
                      "nothing.",
             "Leave it so if the probe is to go through that address."}};
  }
  return {{"host", Severity::Warning, NameOf(kind),
           quoted +
               "is an address of another machine. Where no router leads the probe back to this "
               "one, a healthy server is ended again and again.",
           "Connect to it from this machine; if that fails, uncheck \"Freeze Autokill after\" or "
           "name an address of this machine."}};
}

Finding PortHeldFinding(ComponentKind kind, std::int32_t port, const HolderFacts& holder) {
  std::string who = "A program that the system does not name";
  if (!holder.executable.empty()) who = "\"" + holder.executable + "\"";
  if (holder.process != 0) who += " (process " + std::to_string(holder.process) + ")";
  return {"port-held", Severity::Error, NameOf(kind),
          who + " holds the port " + std::to_string(port) + ".",
          "End that program, or give the component another port."};
}

std::optional<Listener> ListenerAt(const std::vector<Listener>& listeners, std::uint32_t address,
                                   std::int32_t port) {
  const auto found =
      std::find_if(listeners.begin(), listeners.end(), [&](const Listener& listener) {
        return listener.port == port && (listener.address == 0 || listener.address == address);
      });
  if (found == listeners.end()) return std::nullopt;
  return *found;
}

bool IsOwnAddress(std::uint32_t address, const std::vector<std::uint32_t>& own) {
  std::uint8_t first = 0;
  std::memcpy(&first, &address, sizeof first);
  return first == 127 || std::find(own.begin(), own.end(), address) != own.end();
}

}  // namespace tarvo
