// The network face of the remote service: one request per connection, one connection at a time.
// Runs on a thread of its own and owns no state of the program.
#pragma once

#include "http/hand_over.h"
#include "http/remote_server.h"
#include "http/sockets.h"

namespace mrl {

constexpr uint32_t kWaitForConnectionMs = 200;  // and so how long a stop may have to wait
constexpr uint64_t kReadLimitMs = 2000;         // for head and body together, from the accept on

/// Serves until `server.running` is false. A connection that is being served then gets its answer
/// first.
void runListener(const RemoteServer& server, HandOverDoors doors);

/// Reads one request from the connection and answers it.
void serveConnection(const RemoteServer& server, const HandOverDoors& doors,
                     Connection& connection);

}  // namespace mrl
