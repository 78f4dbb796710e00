// The state of the remote service.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace mrl {

/// Filled by the start on the UI thread. While the listener's thread lives only the two atomic
/// fields change.
struct RemoteServer {
  std::atomic<bool> running = false;
  std::vector<uint32_t> addresses;       // IPv4 in network order, the best first; without loopback
  std::atomic<uint64_t> generation = 0;  // a new one at every start and every stop
  std::string page;
  std::string pairingKey;  // 32 lower-case hexadecimal digits; marks one run, is no password
  int32_t port = 58718;
};

}  // namespace mrl
