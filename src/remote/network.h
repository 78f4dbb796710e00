// The networks that this computer is connected to.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace mrl {

struct NetworkAdapter {
  uint32_t index = 0;  // of its interface
  bool isUp = false;
  bool isLoopback = false;
  bool isTunnel = false;
  std::optional<bool> isHardware = {};  // nothing where the system doesn't tell
  uint32_t metric = 0;                  // of IPv4; the smaller, the better
  bool hasGateway = false;
  std::vector<uint32_t> addresses = {};  // IPv4 in network order
};

enum class ConnectionsResult { Listed, NoNetworkService, NoConnections };

/// UI thread only; may block for as long as the system takes.
class Network {
 public:
  virtual ~Network() = default;
  /// Fills `indices` with the interfaces that really are connected. One that can't be asked is left
  /// out.
  [[nodiscard]] virtual ConnectionsResult connectedInterfaces(std::vector<uint32_t>& indices) = 0;
  /// Fills `adapters` with all that have IPv4; false when the system can't list them.
  [[nodiscard]] virtual bool listAdapters(std::vector<NetworkAdapter>& adapters) = 0;
};

}  // namespace mrl
