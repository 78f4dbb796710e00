#include <gtest/gtest.h>
#include <windows.h>
#include <winsock2.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstring>
#include <future>
#include <random>
#include <thread>
#include <utility>

#include "base/clock_win.h"
#include "base/geometry_win.h"
#include "base/replaced_import_win.h"
#include "base/unique_handle.h"
#include "http/ipv4.h"
#include "http/raw_client_win.h"
#include "http/request_queue_win.h"
#include "http/sockets_win.h"
#include "remote/remote_requests.h"
#include "remote/remote_service.h"
#include "remote/served_app_fake.h"
#include "settings/settings_file.h"

namespace mrl {

/// Keeps Winsock for the clients of the tests, which may still read when the service has given it
/// back.
struct PlatformSockets : SocketsWin {
  Winsock winsock;
};
using PlatformClock = ClockWin;

struct ServiceWindowTraits {
  static HWND none() { return nullptr; }
  static void close(HWND window) { DestroyWindow(window); }
};

/// Posts to a window of the test's thread, which the test pumps by hand.
class PumpedQueue : public RequestQueueWin {
 public:
  bool post(WindowHandle /*target*/, std::shared_ptr<RemoteRequest> request) override {
    return RequestQueueWin::post(handleFrom(window.get()), std::move(request));
  }
  void pump(App& app) {
    waitFor(5);
    MSG message{};
    while (PeekMessageW(&message, window.get(), kRemoteRequestMessage, kRemoteRequestMessage,
                        PM_REMOVE)) {
      onRemoteRequest(app, *requestFrom(message.lParam));
    }
  }
  void waitUntilPosted() { waitFor(10'000); }

 private:
  static void waitFor(DWORD limitMs) {
    MsgWaitForMultipleObjectsEx(0, nullptr, limitMs, QS_POSTMESSAGE, MWMO_INPUTAVAILABLE);
  }
  UniqueHandle<ServiceWindowTraits> window{
      CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr)};
};

}  // namespace mrl

#include "remote/service_fixture.inc"

#include "remote/service_contract.inc"

namespace mrl {
namespace {

TEST(RequestQueueWinTest, AWindowThatIsGoneTakesNoRequest) {
  RequestQueueWin queue;
  auto request = std::make_shared<RemoteRequest>();
  EXPECT_FALSE(queue.post({0x12345678}, request));
  EXPECT_EQ(request.use_count(), 1);
}

TEST(RequestQueueWinTest, ADrainLetsGoOfEveryRequest) {
  PumpedQueue queue;
  auto request = std::make_shared<RemoteRequest>();
  ASSERT_TRUE(queue.post({}, request));
  ASSERT_TRUE(queue.post({}, request));
  EXPECT_EQ(request.use_count(), 3);
  queue.drain();
  EXPECT_EQ(request.use_count(), 1);
}

TEST(RequestQueueWinTest, AnEventIsWaitedForAndStaysSet) {
  RequestQueueWin queue;
  const auto event = queue.makeEvent();
  EXPECT_FALSE(event->wait(0));
  event->set();
  EXPECT_TRUE(event->wait(0));
  EXPECT_TRUE(event->wait(0));
}

TEST(RequestQueueWinTest, WhatWaitsForAnotherThreadIsWokenByTheSet) {
  RequestQueueWin queue;
  const auto event = queue.makeEvent();
  std::thread other([&] { event->set(); });
  EXPECT_TRUE(event->wait(10'000));
  other.join();
}

/// Scripted results and recorded calls of Winsock.
struct WinsockStory {
  int startupResult = 0;
  int cleanups = 0;
  int waits = 0;
  WORD version = 0;
  int optionResult = 0;
  std::vector<int> options;
};
WinsockStory story;

int WSAAPI startup(WORD version, WSADATA* /*data*/) {
  story.version = version;
  return story.startupResult;
}
int WSAAPI cleanup() {
  ++story.cleanups;
  return 0;
}
int WSAAPI setOption(SOCKET /*socket*/, int level, int option, const char* value, int size) {
  int number = 0;
  if (size == sizeof number) std::memcpy(&number, value, sizeof number);
  if (level == SOL_SOCKET && number != 0) story.options.push_back(option);
  return story.optionResult;
}

HANDLE WINAPI noEvent(SECURITY_ATTRIBUTES* /*security*/, BOOL /*manual*/, BOOL /*set*/,
                      const wchar_t* /*name*/) {
  return nullptr;
}
int WSAAPI watchNothing(SOCKET /*socket*/, WSAEVENT /*event*/, long /*what*/) {
  return SOCKET_ERROR;
}

TEST(SocketsWinTest, ASessionAsksForVersion22AndGivesItBackOnce) {
  story = {};
  const ReplacedImport<decltype(startup)> start{"WSAStartup", startup};
  const ReplacedImport<decltype(cleanup)> end{"WSACleanup", cleanup};
  SocketsWin sockets;
  auto session = sockets.start();
  EXPECT_TRUE(session);
  EXPECT_EQ(story.version, 0x0202);
  EXPECT_EQ(story.cleanups, 0);
  session.reset();
  EXPECT_EQ(story.cleanups, 1);
}

TEST(SocketsWinTest, WithoutTheLibraryThereIsNoSessionAndNothingToGiveBack) {
  story = {.startupResult = WSASYSNOTREADY};
  const ReplacedImport<decltype(startup)> start{"WSAStartup", startup};
  const ReplacedImport<decltype(cleanup)> end{"WSACleanup", cleanup};
  SocketsWin sockets;
  EXPECT_FALSE(sockets.start());
  EXPECT_EQ(story.cleanups, 0);
}

TEST(SocketsWinTest, WithoutAnEventThereIsNoSession) {
  const ReplacedImport<decltype(noEvent)> event{"CreateEventW", noEvent};
  SocketsWin sockets;
  EXPECT_FALSE(sockets.start());
}

TEST_F(RealSocketsTest, WhoseListenerCanNotBeWatchedDoesNotListen) {
  const ReplacedImport<decltype(watchNothing)> watch{"WSAEventSelect", watchNothing};
  EXPECT_FALSE(session->listen(kLoopback, port(), 1));
}

/// As the event behaves if both peers have come before the first wait.
DWORD WINAPI wakeOnce(HANDLE /*event*/, DWORD /*limitMs*/) {
  return ++story.waits == 1 ? WAIT_OBJECT_0 : WAIT_TIMEOUT;
}

TEST_F(RealSocketsTest, APeerWhoseEventWasUsedUpByAnotherIsFoundAllTheSame) {
  std::vector<std::unique_ptr<ListeningSocket>> listeners;
  listeners.push_back(session->listen(ipv4(127, 0, 0, 2), port(), 1));
  listeners.push_back(session->listen(kLoopback, port(), 1));
  const RawClient one(port());
  const RawClient other(port(), ipv4(127, 0, 0, 2));
  story = {};
  const ReplacedImport<decltype(wakeOnce)> wait{"WaitForSingleObject", wakeOnce};
  for (const auto& listener : listeners) {
    ASSERT_EQ(session->wait(listeners, 0), listener.get());
    EXPECT_TRUE(session->accept(*listener, kSoonMs));
  }
  EXPECT_EQ(session->wait(listeners, 0), nullptr);
}

TEST_F(RealSocketsTest, AListenersPlaceIsItsOwnOrItDoesNotListen) {
  story = {};
  const ReplacedImport<decltype(setOption)> options{"setsockopt", setOption};
  EXPECT_TRUE(session->listen(kLoopback, port(), 1));
  EXPECT_EQ(story.options, std::vector<int>{SO_EXCLUSIVEADDRUSE});
  story.optionResult = SOCKET_ERROR;
  EXPECT_FALSE(session->listen(kLoopback, port(), 1));
}

}  // namespace
}  // namespace mrl
