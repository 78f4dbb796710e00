// The network side of the remote service: one request per connection, one connection at a time.
// Runs on its own thread and owns no program state.
#pragma once

#include "http/hand_over.h"
#include "http/remote_server.h"
#include "http/sockets.h"

namespace mrl {

constexpr uint32_t kWaitForConnectionMs = 200;  // an idle listener notices a stop within this time
constexpr uint64_t kReadLimitMs = 2000;  // for head and body together, counted from the accept

/// Serves until `server.running` is false. A connection already being served is answered first.
void runListener(const RemoteServer& server, HandOverInterfaces interfaces);

/// Reads one request from the connection and sends the answer.
void serveConnection(const RemoteServer& server, const HandOverInterfaces& interfaces,
                     Connection& connection);

}  // namespace mrl
