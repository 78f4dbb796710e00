// Network interface for the listener: listening sockets, and connections served one at a time. Each
// object closes what it owns when destroyed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

namespace mrl {

/// One accepted connection. Blocking calls time out after the `callLimitMs` given to accept().
class Connection {
 public:
  virtual ~Connection() = default;
  /// Number of bytes received; below 1 if the peer closed, the call timed out or the network
  /// failed.
  [[nodiscard]] virtual int receive(std::span<char> buffer) = 0;
  /// Number of bytes sent from the front of `bytes`; below 1 if the connection is unusable.
  [[nodiscard]] virtual int send(std::string_view bytes) = 0;
  /// The local address on which the connection arrived, in network order.
  [[nodiscard]] virtual std::optional<uint32_t> localAddress() = 0;
};

class ListeningSocket {
 public:
  virtual ~ListeningSocket() = default;
};

/// An initialised network. listen() is for the UI thread, the rest for the listener's thread.
class SocketSession {
 public:
  virtual ~SocketSession() = default;
  /// Listens on one address (network order) and port, exclusively. At least `backlog` peers may
  /// wait to be accepted. Null on failure.
  [[nodiscard]] virtual std::unique_ptr<ListeningSocket> listen(uint32_t address, int32_t port,
                                                                int backlog) = 0;
  /// The first of at most kMostListeners sockets that has a peer waiting to be accepted. Null if
  /// nobody came in time or the network failed; after a peer has come, one wait may give up early.
  [[nodiscard]] virtual ListeningSocket* wait(
      std::span<const std::unique_ptr<ListeningSocket>> listeners, uint32_t limitMs) = 0;
  /// Null on failure.
  [[nodiscard]] virtual std::unique_ptr<Connection> accept(ListeningSocket& listener,
                                                           uint32_t callLimitMs) = 0;
};

class Sockets {
 public:
  virtual ~Sockets() = default;
  /// Null if the network can't be used. All sockets of a session must be destroyed before it.
  [[nodiscard]] virtual std::unique_ptr<SocketSession> start() = 0;
};

constexpr size_t kMostListeners = 64;

}  // namespace mrl
