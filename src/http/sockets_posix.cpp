#include "http/sockets_posix.h"

#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <utility>

#include "base/unique_handle.h"

namespace mrl {
namespace {

using Socket = int;
constexpr Socket kNoSocket = -1;
using AddressLength = socklen_t;
using SocketLimit = timeval;

// Without it the port stays taken for a minute after the service has stopped; a second listener on
// the port is refused all the same.
constexpr int kOwnAddressOption = SO_REUSEADDR;
constexpr int kSendFlags = MSG_NOSIGNAL;  // no SIGPIPE if the peer has gone

void closeSocket(Socket socket) { close(socket); }

SocketLimit socketLimit(uint32_t ms) {
  return {.tv_sec = ms / 1000, .tv_usec = static_cast<suseconds_t>(ms % 1000 * 1000)};
}

struct Startup {
  explicit operator bool() const { return true; }
};

struct Arrivals {
  explicit operator bool() const { return true; }
  static bool watch(Socket /*listener*/) { return true; }
  static bool wait(pollfd* sockets, size_t count, uint32_t limitMs) {
    return poll(sockets, count, static_cast<int>(limitMs)) > 0;
  }
  static void release(Socket /*accepted*/) {}
};

}  // namespace
}  // namespace mrl

#include "http/sockets_shared.inc"

namespace mrl {

std::unique_ptr<SocketSession> SocketsPosix::start() { return startSession(); }

}  // namespace mrl
