#include "http/sockets_win.h"

#include <windows.h>
#include <winsock2.h>

#include <algorithm>
#include <array>
#include <utility>

#include "base/unique_handle.h"

namespace mrl {
namespace {

using Socket = SOCKET;
constexpr Socket kNoSocket = INVALID_SOCKET;
using AddressLength = int;
using SocketLimit = DWORD;

// Prevents any other program from listening on the same address and port.
constexpr int kOwnAddressOption = SO_EXCLUSIVEADDRUSE;
constexpr int kSendFlags = 0;

void closeSocket(Socket socket) { closesocket(socket); }

SocketLimit socketLimit(uint32_t ms) { return ms; }

int pollSockets(WSAPOLLFD* sockets, size_t count, uint32_t limitMs) {
  return WSAPoll(sockets, static_cast<ULONG>(count), static_cast<INT>(limitMs));
}

class Startup {
 public:
  Startup() : works(WSAStartup(MAKEWORD(2, 2), &data) == 0) {}
  Startup(const Startup&) = delete;
  Startup& operator=(const Startup&) = delete;
  ~Startup() {
    if (works) WSACleanup();
  }
  explicit operator bool() const { return works; }

 private:
  WSADATA data{};
  bool works;
};

}  // namespace
}  // namespace mrl

#include "http/sockets_shared.inc"

namespace mrl {

std::unique_ptr<SocketSession> SocketsWin::start() { return startSession(); }

}  // namespace mrl
