#include "remote/addresses.h"

#include <algorithm>
#include <tuple>

#include "base/text.h"
#include "http/ipv4.h"
#include "http/sockets.h"

namespace mrl {
namespace {

constexpr char16_t kNoNetworkService[] = u"无法读取 Windows 网络类型，请检查网络服务。";
constexpr char16_t kNoConnections[] = u"无法读取 Windows 网络连接。";
constexpr char16_t kNoAdapters[] = u"无法读取网络地址，请检查网络连接。";
constexpr char16_t kNoAddress[] = u"未发现已连接的 IPv4 网络，请检查网络连接后重新启动遥控服务。";
constexpr char16_t kTooMany[] = u"网络地址过多，无法启动遥控服务。";

constexpr size_t kMaxAddresses = kMostListeners - 1;  // one is for loopback

struct AddressCandidate {
  uint32_t address = 0;
  uint32_t metric = 0;
  bool noGateway = false;
  bool virtualAdapter = false;

  /// Orders the address that most likely reaches this computer first.
  bool operator<(const AddressCandidate& other) const {
    return std::tie(virtualAdapter, noGateway, metric, address) <
           std::tie(other.virtualAdapter, other.noGateway, other.metric, other.address);
  }
};

template <typename Value>
bool contains(const std::vector<Value>& list, const Value& value) {
  return std::find(list.begin(), list.end(), value) != list.end();
}

/// The usable addresses of connected adapters. Needs both lists: an adapter can be up without being
/// connected to anything.
std::vector<AddressCandidate> candidatesOf(const std::vector<NetworkAdapter>& adapters,
                                           const std::vector<uint32_t>& connected) {
  std::vector<AddressCandidate> candidates;
  for (const NetworkAdapter& adapter : adapters) {
    if (!adapter.isUp || adapter.isLoopback || !contains(connected, adapter.index)) continue;
    const bool isVirtual = adapter.isHardware ? !*adapter.isHardware : adapter.isTunnel;
    for (const uint32_t address : adapter.addresses) {
      if (address == 0) continue;
      candidates.push_back({address, adapter.metric, !adapter.hasGateway, isVirtual});
    }
  }
  return candidates;
}

bool listCandidates(Network& network, std::vector<AddressCandidate>& candidates,
                    std::u16string& error) {
  std::vector<uint32_t> connected;
  switch (network.connectedInterfaces(connected)) {
    case ConnectionsResult::NoNetworkService: error = kNoNetworkService; return false;
    case ConnectionsResult::NoConnections: error = kNoConnections; return false;
    case ConnectionsResult::Listed: break;
  }
  std::vector<NetworkAdapter> adapters;
  if (!network.listAdapters(adapters)) {
    error = kNoAdapters;
    return false;
  }
  candidates = candidatesOf(adapters, connected);
  return true;
}

}  // namespace

bool discoverAddresses(Network& network, std::vector<uint32_t>& addresses, std::u16string& error) {
  addresses.clear();
  std::vector<AddressCandidate> candidates;
  if (!listCandidates(network, candidates, error)) return false;
  std::sort(candidates.begin(), candidates.end());
  for (const AddressCandidate& candidate : candidates) {
    if (!contains(addresses, candidate.address)) addresses.push_back(candidate.address);
  }
  if (!addresses.empty() && addresses.size() <= kMaxAddresses) return true;
  error = addresses.empty() ? kNoAddress : kTooMany;
  addresses.clear();
  return false;
}

std::u16string remoteUrlList(const std::vector<uint32_t>& addresses, const std::u16string& key,
                             int32_t port) {
  if (addresses.empty()) return remoteUrlList({kLoopback}, key, port);
  std::u16string lines;
  for (const uint32_t address : addresses) {
    if (!lines.empty()) lines += u"\r\n";
    lines += u"http://" + utf16From(dottedText(address)) + u":" + decimal(port) + u"/";
    if (!key.empty()) lines += u"#" + key;
  }
  return lines;
}

}  // namespace mrl
