#include <gtest/gtest.h>
#include <windows.h>
#include <winsock2.h>

#include <array>
#include <atomic>
#include <chrono>
#include <future>
#include <random>
#include <thread>
#include <utility>

#include "core/clock_win.h"
#include "core/geometry_win.h"
#include "core/unique_handle.h"
#include "remote/hand_over.h"
#include "remote/ipv4.h"
#include "remote/raw_client_win.h"
#include "remote/request_queue_win.h"
#include "remote/served_app_fake.h"
#include "remote/sockets_win.h"
#include "settings/settings_file.h"

namespace mrl {

using PlatformSockets = SocketsWin;
using PlatformClock = ClockWin;

struct WindowTraits {
  static HWND none() { return nullptr; }
  static void close(HWND window) { DestroyWindow(window); }
};

/// Posts to a window of the test's own thread, which the test empties by hand.
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
  UniqueHandle<WindowTraits> window{
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

}  // namespace
}  // namespace mrl
