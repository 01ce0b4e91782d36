#include "platform/windows/network_inspection_windows.h"

#include <winsock2.h>
// After winsock2.h, which it needs.
#include <iphlpapi.h>

#include <cstddef>

#include "platform/windows/system_libraries.h"

namespace tarvo {
namespace {

constexpr char kAddressLibrary[] = "iphlpapi.dll";
constexpr int kMostReadings = 4;

/// Asks for a table until it fits, since it may grow between two questions. Its bytes, suitably
/// aligned; none where the system has no such table.
template <typename Ask>
std::vector<std::max_align_t> ReadTable(Ask ask) {
  std::vector<std::max_align_t> bytes(64);
  for (int i = 0; i < kMostReadings; ++i) {
    auto size = static_cast<DWORD>(bytes.size() * sizeof(std::max_align_t));
    const DWORD error = ask(bytes.data(), &size);
    if (error == NO_ERROR) return bytes;
    if (error != ERROR_INSUFFICIENT_BUFFER) break;
    bytes.resize(size / sizeof(std::max_align_t) + 16);
  }
  return {};
}

}  // namespace

std::vector<Listener> WindowsNetworkInspection::Listeners() {
  using Call = DWORD(WINAPI*)(void*, DWORD*, BOOL, ULONG, TCP_TABLE_CLASS, ULONG);
  static const auto call = LateCall<Call>(kAddressLibrary, "GetExtendedTcpTable");
  std::vector<Listener> listeners;
  if (!call) return listeners;
  const auto bytes = ReadTable([](void* table, DWORD* size) {
    return call(table, size, FALSE, AF_INET, TCP_TABLE_OWNER_PID_LISTENER, 0);
  });
  if (bytes.empty()) return listeners;
  const auto& table = *reinterpret_cast<const MIB_TCPTABLE_OWNER_PID*>(bytes.data());
  for (DWORD i = 0; i < table.dwNumEntries; ++i) {
    const MIB_TCPROW_OWNER_PID& row = table.table[i];
    listeners.push_back(
        {row.dwLocalAddr, ntohs(static_cast<u_short>(row.dwLocalPort)), row.dwOwningPid});
  }
  return listeners;
}

std::vector<std::uint32_t> WindowsNetworkInspection::OwnAddresses() {
  using Call = DWORD(WINAPI*)(MIB_IPADDRTABLE*, ULONG*, BOOL);
  static const auto call = LateCall<Call>(kAddressLibrary, "GetIpAddrTable");
  std::vector<std::uint32_t> addresses;
  if (!call) return addresses;
  const auto bytes = ReadTable([](void* table, DWORD* size) {
    return call(static_cast<MIB_IPADDRTABLE*>(table), size, FALSE);
  });
  if (bytes.empty()) return addresses;
  const auto& table = *reinterpret_cast<const MIB_IPADDRTABLE*>(bytes.data());
  for (DWORD i = 0; i < table.dwNumEntries; ++i) addresses.push_back(table.table[i].dwAddr);
  return addresses;
}

}  // namespace tarvo
