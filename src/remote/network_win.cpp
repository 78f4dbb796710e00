#include "remote/network_win.h"

#include <winsock2.h>
#include <ws2tcpip.h>

#include <iphlpapi.h>
#include <netioapi.h>
#include <netlistmgr.h>

#include <cstddef>

#include "base/com_ref_win.h"

namespace mrl {
namespace {

constexpr GUID kNetworkListManager = {
    0xDCB00C01, 0x570F, 0x4A9B, {0x8D, 0x69, 0x19, 0x9F, 0xDB, 0xA5, 0x72, 0x3B}};
constexpr GUID kINetworkListManager = {
    0xDCB00000, 0x570F, 0x4A9B, {0x8D, 0x69, 0x19, 0x9F, 0xDB, 0xA5, 0x72, 0x3B}};
constexpr ULONG kFlags = GAA_FLAG_SKIP_ANYCAST | GAA_FLAG_SKIP_MULTICAST |
                         GAA_FLAG_SKIP_DNS_SERVER | GAA_FLAG_INCLUDE_GATEWAYS;
constexpr ULONG kFirstBufferBytes = 16384;

bool isConnectedInterface(INetworkConnection& connection, NET_IFINDEX& index) {
  VARIANT_BOOL isConnected = VARIANT_FALSE;
  if (FAILED(connection.get_IsConnected(&isConnected)) || isConnected != VARIANT_TRUE) return false;
  GUID adapter{};
  if (FAILED(connection.GetAdapterId(&adapter))) return false;
  NET_LUID luid{};
  return ConvertInterfaceGuidToLuid(&adapter, &luid) == NO_ERROR &&
         ConvertInterfaceLuidToIndex(&luid, &index) == NO_ERROR;
}

std::optional<bool> isHardware(const NET_LUID& luid) {
  MIB_IF_ROW2 row{};
  row.InterfaceLuid = luid;
  if (GetIfEntry2(&row) != NO_ERROR) return std::nullopt;
  return row.InterfaceAndOperStatusFlags.HardwareInterface != FALSE;
}

NetworkAdapter adapterFrom(const IP_ADAPTER_ADDRESSES& from) {
  NetworkAdapter adapter{.index = from.IfIndex,
                         .isUp = from.OperStatus == IfOperStatusUp,
                         .isLoopback = from.IfType == IF_TYPE_SOFTWARE_LOOPBACK,
                         .isTunnel = from.IfType == IF_TYPE_TUNNEL,
                         .isHardware = isHardware(from.Luid),
                         .metric = from.Ipv4Metric,
                         .hasGateway = from.FirstGatewayAddress != nullptr};
  for (const auto* entry = from.FirstUnicastAddress; entry != nullptr; entry = entry->Next) {
    const SOCKADDR* const address = entry->Address.lpSockaddr;
    if (address == nullptr || address->sa_family != AF_INET) continue;
    const auto* const place = reinterpret_cast<const sockaddr_in*>(address);
    adapter.addresses.push_back(place->sin_addr.s_addr);
  }
  return adapter;
}

}  // namespace

ConnectionsResult NetworkWin::connectedInterfaces(std::vector<uint32_t>& indices) {
  ComRef<INetworkListManager> manager;
  if (FAILED(CoCreateInstance(kNetworkListManager, nullptr, CLSCTX_ALL, kINetworkListManager,
                              reinterpret_cast<void**>(manager.put())))) {
    return ConnectionsResult::NoNetworkService;
  }
  ComRef<IEnumNetworkConnections> connections;
  if (FAILED(manager->GetNetworkConnections(connections.put()))) {
    return ConnectionsResult::NoConnections;
  }
  while (true) {
    ComRef<INetworkConnection> connection;
    ULONG fetched = 0;
    if (connections->Next(1, connection.put(), &fetched) != S_OK || fetched == 0) break;
    NET_IFINDEX index = 0;
    if (isConnectedInterface(*connection, index)) indices.push_back(index);
  }
  return ConnectionsResult::Listed;
}

bool NetworkWin::listAdapters(std::vector<NetworkAdapter>& adapters) {
  ULONG size = kFirstBufferBytes;
  std::vector<std::max_align_t> buffer;
  ULONG result = ERROR_BUFFER_OVERFLOW;
  for (int tries = 0; tries < 2 && result == ERROR_BUFFER_OVERFLOW; ++tries) {
    buffer.resize(size / sizeof(std::max_align_t) + 1);
    result = GetAdaptersAddresses(AF_INET, kFlags, nullptr,
                                  reinterpret_cast<IP_ADAPTER_ADDRESSES*>(buffer.data()), &size);
  }
  if (result != NO_ERROR) return false;
  const auto* first = reinterpret_cast<const IP_ADAPTER_ADDRESSES*>(buffer.data());
  for (const auto* entry = first; entry != nullptr; entry = entry->Next) {
    adapters.push_back(adapterFrom(*entry));
  }
  return true;
}

}  // namespace mrl
