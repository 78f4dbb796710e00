// An in-memory network: listening can be refused, and connections follow the test's script.
#pragma once

#include <algorithm>
#include <atomic>
#include <cassert>
#include <chrono>
#include <deque>
#include <functional>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "http/ipv4.h"
#include "http/sockets.h"

namespace mrl {

// Addresses of two network cards of this machine.
inline constexpr uint32_t kWired = ipv4(192, 168, 1, 5);
inline constexpr uint32_t kWireless = ipv4(10, 0, 0, 7);

/// What one peer sends and what it receives. Must outlive the connection.
struct PeerFake {
  std::vector<std::string> chunks;  // one per receive; after the last one the peer is silent
  std::function<void()> onReceive;  // runs at the start of every receive, e.g. to let time pass
  int silence = 0;                  // result of a receive after the last chunk; below 1
  size_t mostPerSend = std::string::npos;
  size_t sendsBeforeFailure = std::string::npos;
  int failedSend = -1;                                // result of a failed send; below 1
  std::optional<uint32_t> localAddress = 0x0100007F;  // 127.0.0.1 on a little-endian machine

  std::string received;
  std::optional<uint32_t> callLimitMs;  // as passed to accept()
  std::optional<size_t> bufferBytes;    // of the latest receive
  size_t receives = 0;
  size_t sends = 0;
  bool closed = false;
};

class ConnectionFake : public Connection {
 public:
  explicit ConnectionFake(PeerFake& other) : peer(other) {}
  ConnectionFake(const ConnectionFake&) = delete;
  ConnectionFake& operator=(const ConnectionFake&) = delete;
  ~ConnectionFake() override { peer.closed = true; }

  int receive(std::span<char> buffer) override {
    if (peer.onReceive) peer.onReceive();
    peer.bufferBytes = buffer.size();
    if (peer.receives >= peer.chunks.size()) return peer.silence;
    const std::string& chunk = peer.chunks[peer.receives++];
    assert(chunk.size() <= buffer.size());
    std::ranges::copy(chunk, buffer.begin());
    return static_cast<int>(chunk.size());
  }
  int send(std::string_view bytes) override {
    if (peer.sends >= peer.sendsBeforeFailure) return peer.failedSend;
    ++peer.sends;
    const std::string_view taken = bytes.substr(0, peer.mostPerSend);
    peer.received.append(taken);
    return static_cast<int>(taken.size());
  }
  std::optional<uint32_t> localAddress() override { return peer.localAddress; }

 private:
  PeerFake& peer;
};

/// The fake network. Peers wait at the listener with their index, in the order of the list.
class SocketsFake : public Sockets {
 public:
  struct WaitingPeer {
    size_t listener = 0;
    PeerFake* peer = nullptr;  // null: the accept fails
  };
  struct Place {
    uint32_t address = 0;
    int32_t port = 0;
    int backlog = 0;
    bool operator==(const Place&) const = default;
  };

  struct Wait {
    size_t listeners = 0;
    uint32_t limitMs = 0;
    bool operator==(const Wait&) const = default;
  };

  std::unique_ptr<SocketSession> start() override;

  // Inputs. Set them before a thread uses the fake.
  bool failsStart = false;
  std::set<uint32_t> taken;  // addresses on which listen() fails
  std::deque<WaitingPeer> waiting;
  std::function<void()> onIdle;  // runs when no peer waits; if empty, sleeps briefly

  // Records of the calls. `bound` is what is bound now.
  std::vector<Place> bound;
  std::vector<Wait> waits;
  int sessions = 0;  // open now
  int starts = 0;
  std::atomic<int> idleWaits = 0;  // waits without a peer
};

namespace sockets_fake {

class Listener : public ListeningSocket {
 public:
  Listener(SocketsFake& owner, SocketsFake::Place at) : net(owner), place(at) {
    net.bound.push_back(place);
  }
  Listener(const Listener&) = delete;
  Listener& operator=(const Listener&) = delete;
  ~Listener() override {
    assert(net.sessions > 0);
    net.bound.erase(std::ranges::find(net.bound, place));
  }

 private:
  SocketsFake& net;
  SocketsFake::Place place;
};

class Session : public SocketSession {
 public:
  explicit Session(SocketsFake& owner) : net(owner) { ++net.sessions; }
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session() override { --net.sessions; }

  std::unique_ptr<ListeningSocket> listen(uint32_t address, int32_t port, int backlog) override {
    if (net.taken.contains(address)) return nullptr;
    return std::make_unique<Listener>(net, SocketsFake::Place{address, port, backlog});
  }
  ListeningSocket* wait(std::span<const std::unique_ptr<ListeningSocket>> listeners,
                        uint32_t limitMs) override {
    net.waits.push_back({listeners.size(), limitMs});
    if (!net.waiting.empty()) return listeners[net.waiting.front().listener].get();
    ++net.idleWaits;
    if (net.onIdle) {
      net.onIdle();
    } else {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return nullptr;
  }
  std::unique_ptr<Connection> accept(ListeningSocket& /*listener*/, uint32_t callLimitMs) override {
    PeerFake* const peer = net.waiting.front().peer;
    net.waiting.pop_front();
    if (peer == nullptr) return nullptr;
    peer->callLimitMs = callLimitMs;
    return std::make_unique<ConnectionFake>(*peer);
  }

 private:
  SocketsFake& net;
};

}  // namespace sockets_fake

inline std::unique_ptr<SocketSession> SocketsFake::start() {
  ++starts;
  if (failsStart) return nullptr;
  return std::make_unique<sockets_fake::Session>(*this);
}

}  // namespace mrl
