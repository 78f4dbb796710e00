// The remote service while it runs: sockets, listener thread, and the data both threads share.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "base/clock.h"
#include "base/window_handle.h"
#include "http/request_queue.h"
#include "http/service_host.h"
#include "http/sockets.h"

namespace mrl {

/// Filled on the UI thread by startServer(). While the listener's thread runs, only the two atomic
/// fields change, so it reads all of them without a lock. The destructor stops the service.
struct RemoteServer {
  RemoteServer() = default;
  RemoteServer(const RemoteServer&) = delete;
  RemoteServer& operator=(const RemoteServer&) = delete;
  ~RemoteServer();

  std::atomic<bool> running = false;
  std::unique_ptr<SocketSession> session;                   // outlives the listeners
  std::vector<std::unique_ptr<ListeningSocket>> listeners;  // one per bound address
  std::vector<uint32_t> addresses;  // IPv4 in network order, best first; without loopback
  std::thread thread;
  std::atomic<uint64_t> generation = 0;  // incremented at every start and stop
  WindowHandle targetWindow;             // gets the requests
  std::string page;
  std::string pairingKey;  // 32 lower-case hex digits; identifies one run, not a secret
  int32_t port = 58718;
};

/// Parameters of startServer(). The interfaces must outlive the server.
struct ServerStart {
  Sockets& sockets;
  ServiceHost& host;
  Clock& clock;
  RequestQueue& requests;
  int32_t port;
  std::vector<uint32_t> addresses;  // without loopback
  WindowHandle target;              // gets the requests
};

/// Listens on loopback and all of the addresses (all or nothing) and starts the listener's thread.
/// If already running, returns true and changes nothing. On failure fills `error`; nothing is
/// running or bound then. UI thread.
[[nodiscard]] bool startServer(RemoteServer& server, const ServerStart& start,
                               std::u16string& error);

/// Stops the listener, joins its thread (waits for the answer in progress) and closes the sockets.
/// Safe if nothing is running. UI thread.
void stopServer(RemoteServer& server);

}  // namespace mrl
