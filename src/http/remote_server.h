// The running remote service: its sockets, its thread, and what the two threads may both see.
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

/// Filled by the start on the UI thread. While the listener's thread lives only the two atomic
/// fields change, so it reads all of them without a lock. Stops itself when it goes.
struct RemoteServer {
  RemoteServer() = default;
  RemoteServer(const RemoteServer&) = delete;
  RemoteServer& operator=(const RemoteServer&) = delete;
  ~RemoteServer();

  std::atomic<bool> running = false;
  std::unique_ptr<SocketSession> session;                   // outlives the listeners
  std::vector<std::unique_ptr<ListeningSocket>> listeners;  // one per bound address
  std::vector<uint32_t> addresses;  // IPv4 in network order, the best first; without loopback
  std::thread thread;
  std::atomic<uint64_t> generation = 0;  // a new one at every start and every stop
  WindowHandle targetWindow;             // gets the requests
  std::string page;
  std::string pairingKey;  // 32 lower-case hexadecimal digits; marks one run, is no password
  int32_t port = 58718;
};

/// What a start needs. The interfaces outlive the server.
struct ServerStart {
  Sockets& sockets;
  ServiceHost& host;
  Clock& clock;
  RequestQueue& requests;
  int32_t port;
  std::vector<uint32_t> addresses;  // without loopback
  WindowHandle target;              // gets the requests
};

/// Listens on all of the addresses and on loopback, or on none, and starts the listener's thread.
/// Running already is success and changes nothing. On failure fills `error`, and nothing runs or
/// stays bound. UI thread.
[[nodiscard]] bool startServer(RemoteServer& server, const ServerStart& start,
                               std::u16string& error);

/// Ends the listener, joins its thread, which takes as long as the answer it is at, and closes the
/// sockets. Safe when nothing runs. UI thread.
void stopServer(RemoteServer& server);

}  // namespace mrl
