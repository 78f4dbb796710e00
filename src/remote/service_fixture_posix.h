// The POSIX part of the service tests.
#pragma once

#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <future>
#include <random>
#include <thread>

#include "base/clock_posix.h"
#include "base/unique_handle.h"
#include "http/ipv4.h"
#include "http/request_queue_posix.h"
#include "http/sockets_posix.h"
#include "remote/remote_requests.h"
#include "remote/remote_service.h"
#include "remote/served_app_fake.h"
#include "settings/settings_file.h"

namespace mrl {

using Socket = int;
constexpr Socket kNoSocket = -1;
using SocketLimit = timeval;
constexpr int kSendFlags = MSG_NOSIGNAL;
constexpr int kStopSending = SHUT_WR;
using PlatformSockets = SocketsPosix;
using PlatformClock = ClockPosix;

inline void closeSocket(Socket socket) { close(socket); }
inline SocketLimit socketLimit(uint32_t ms) { return {.tv_sec = ms / 1000, .tv_usec = 0}; }

class PumpedQueue : public RequestQueuePosix {
 public:
  void pump(App& app) {
    wait(5);
    for (const auto& request : take()) onRemoteRequest(app, *request);
  }
  void waitUntilPosted() { wait(10'000); }
};

}  // namespace mrl

#include "remote/service_fixture.inc"
