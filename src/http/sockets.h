// The network as the listener sees it: listening sockets, and connections that are read and
// answered one at a time. Each object closes what it owns when it goes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

namespace mrl {

/// One accepted connection. A call that blocks gives up after the time that its accept named.
class Connection {
 public:
  virtual ~Connection() = default;
  /// Bytes put into `buffer`; below 1 when the peer closed, the time was up or the network failed.
  [[nodiscard]] virtual int receive(std::span<char> buffer) = 0;
  /// Bytes taken from the front of `bytes`; below 1 when the connection is of no more use.
  [[nodiscard]] virtual int send(std::string_view bytes) = 0;
  /// The address of this computer on which the connection arrived, in network order.
  [[nodiscard]] virtual std::optional<uint32_t> localAddress() = 0;
};

class ListeningSocket {
 public:
  virtual ~ListeningSocket() = default;
};

/// The network in use. Listening belongs to the UI thread, the rest to the listener's.
class SocketSession {
 public:
  virtual ~SocketSession() = default;
  /// Listens on one address (network order) and port, which nobody else may then take. At least
  /// `backlog` peers may wait there to be accepted. Null on failure.
  [[nodiscard]] virtual std::unique_ptr<ListeningSocket> listen(uint32_t address, int32_t port,
                                                                int backlog) = 0;
  /// The first of at most 64 sockets, in their order, on which somebody waits to be accepted. Null
  /// when nobody came in time, or the network failed.
  [[nodiscard]] virtual ListeningSocket* wait(
      std::span<const std::unique_ptr<ListeningSocket>> listeners, uint32_t limitMs) = 0;
  /// Null on failure.
  [[nodiscard]] virtual std::unique_ptr<Connection> accept(ListeningSocket& listener,
                                                           uint32_t callLimitMs) = 0;
};

class Sockets {
 public:
  virtual ~Sockets() = default;
  /// Null when the network can't be used. All sockets of a session go before it does.
  [[nodiscard]] virtual std::unique_ptr<SocketSession> start() = 0;
};

constexpr size_t kMostListeners = 64;

}  // namespace mrl
