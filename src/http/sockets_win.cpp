#include "http/sockets_win.h"

#include <windows.h>
#include <winsock2.h>

#include <algorithm>
#include <array>
#include <utility>

#include "base/kernel_handle_win.h"
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

/// Sleeps on an event that every listener sets: looking at all of them costs several times as much,
/// five times a second, mostly for nothing.
class Arrivals {
 public:
  explicit operator bool() const { return static_cast<bool>(event); }

  bool watch(Socket listener) { return WSAEventSelect(listener, event.get(), FD_ACCEPT) == 0; }

  /// Marks the sockets that have a peer waiting; false if there is none.
  bool wait(WSAPOLLFD* sockets, size_t count, uint32_t limitMs) {
    const auto someoneWaits = [&] { return WSAPoll(sockets, static_cast<ULONG>(count), 0) > 0; };
    const auto someoneCame = [&] {
      return WaitForSingleObject(event.get(), limitMs) == WAIT_OBJECT_0;
    };
    moreMayWait = (moreMayWait && someoneWaits()) || (someoneCame() && someoneWaits());
    return moreMayWait;
  }

  /// An accepted socket is watched and doesn't block, like its listener.
  static void release(Socket accepted) {
    u_long off = 0;
    WSAEventSelect(accepted, nullptr, 0);
    ioctlsocket(accepted, FIONBIO, &off);
  }

 private:
  KernelHandle event{CreateEventW(nullptr, FALSE, FALSE, nullptr)};
  bool moreMayWait = false;  // the event is set once for all peers that wait
};

}  // namespace
}  // namespace mrl

#include "http/sockets_shared.inc"

namespace mrl {

std::unique_ptr<SocketSession> SocketsWin::start() { return startSession(); }

}  // namespace mrl
