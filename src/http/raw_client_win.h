// The peer of the tests over Winsock. REQUIRES: a Winsock lives when one is made.
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

/// Started for as long as it lives.
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
