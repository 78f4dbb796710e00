// The test client over Winsock. REQUIRES: a Winsock object lives while one is used.
#pragma once

#include <winsock2.h>

#include <string>
#include <string_view>

#include "base/unique_handle.h"
#include "http/ipv4.h"

namespace mrl {

using Socket = SOCKET;
constexpr Socket kNoSocket = INVALID_SOCKET;
using SocketLimit = DWORD;
constexpr int kSendFlags = 0;
constexpr int kStopSending = SD_SEND;

inline void closeSocket(Socket socket) { closesocket(socket); }
inline SocketLimit socketLimit(uint32_t ms) { return ms; }

/// Winsock is initialised while this object lives.
struct Winsock {
  Winsock() {
    WSADATA data;
    (void)WSAStartup(MAKEWORD(2, 2), &data);
  }
  Winsock(const Winsock&) = delete;
  ~Winsock() { WSACleanup(); }
};

}  // namespace mrl

#include "http/raw_client.inc"
