// Interface to the networks that this computer is connected to.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace mrl {

struct NetworkAdapter {
  uint32_t index = 0;  // interface index
  bool isUp = false;
  bool isLoopback = false;
  bool isTunnel = false;
  std::optional<bool> isHardware = {};  // std::nullopt if unknown
  uint32_t metric = 0;                  // IPv4 metric; lower is better
  bool hasGateway = false;
  std::vector<uint32_t> addresses = {};  // IPv4 in network order
};

enum class ConnectionsResult { Listed, NoNetworkService, NoConnections };

/// UI thread only; may block indefinitely.
class Network {
 public:
  virtual ~Network() = default;
  /// Fills `indices` with the interfaces that are connected to a network; skips those that can't be
  /// queried.
  [[nodiscard]] virtual ConnectionsResult connectedInterfaces(std::vector<uint32_t>& indices) = 0;
  /// Fills `adapters` with all that have IPv4; false if the system can't list them.
  [[nodiscard]] virtual bool listAdapters(std::vector<NetworkAdapter>& adapters) = 0;
};

}  // namespace mrl
