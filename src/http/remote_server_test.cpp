#include "http/remote_server.h"

#include <gtest/gtest.h>

#include <memory>

#include "base/clock_fake.h"
#include "http/ipv4.h"
#include "http/request_queue_fake.h"
#include "http/service_host_fake.h"
#include "http/sockets_fake.h"

namespace mrl {
namespace {

constexpr int32_t kServerPort = 22222;
constexpr int kBacklog = 8;
constexpr WindowHandle kTarget{77};
constexpr char16_t kPortText[] = u"遥控端口 22222 无法监听，请检查网络或更换端口。";

class RemoteServerTest : public ::testing::Test {
 protected:
  bool start(const std::vector<uint32_t>& addresses = {}) {
    return startServer(server,
                       {.sockets = sockets,
                        .host = host,
                        .clock = clock,
                        .requests = requests,
                        .port = kServerPort,
                        .addresses = addresses,
                        .target = kTarget},
                       error);
  }
  void expectNothingLeft() {
    EXPECT_FALSE(server.running);
    EXPECT_FALSE(server.thread.joinable());
    EXPECT_TRUE(server.listeners.empty());
    EXPECT_TRUE(server.addresses.empty());
    EXPECT_TRUE(sockets.bound.empty());
    EXPECT_EQ(sockets.sessions, 0);
  }

  SocketsFake sockets;
  RequestQueueFake requests;
  ClockFake clock;
  ServiceHostFake host;
  std::unique_ptr<RemoteServer> owned = std::make_unique<RemoteServer>();
  RemoteServer& server = *owned;
  std::u16string error;
};

TEST_F(RemoteServerTest, AStartListensOnEachAddressAndOnLoopback) {
  ASSERT_TRUE(start({kWired, kWireless}));
  EXPECT_EQ(sockets.bound, (std::vector<SocketsFake::Place>{{kWired, kServerPort, kBacklog},
                                                            {kWireless, kServerPort, kBacklog},
                                                            {kLoopback, kServerPort, kBacklog}}));
  EXPECT_EQ(server.addresses, (std::vector{kWired, kWireless}));
  EXPECT_TRUE(server.running);
  EXPECT_EQ(error, u"");
}

TEST_F(RemoteServerTest, WithoutAnAddressThereIsLoopback) {
  ASSERT_TRUE(start());
  EXPECT_EQ(sockets.bound, (std::vector<SocketsFake::Place>{{kLoopback, kServerPort, kBacklog}}));
}

TEST_F(RemoteServerTest, PortAndTargetAreThoseOfTheStart) {
  ASSERT_TRUE(start());
  EXPECT_EQ(server.port, kServerPort);
  EXPECT_EQ(server.targetWindow, kTarget);
}

TEST_F(RemoteServerTest, TheKeyIs16RandomBytesInOrder) {
  host.nextByte = 0xF8;
  ASSERT_TRUE(start());
  EXPECT_EQ(server.pairingKey, "f8f9fafbfcfdfeff0001020304050607");
}

TEST_F(RemoteServerTest, EveryStartMakesANewKey) {
  ASSERT_TRUE(start());
  const std::string first = server.pairingKey;
  stopServer(server);
  ASSERT_TRUE(start());
  EXPECT_NE(server.pairingKey, first);
  EXPECT_EQ(server.pairingKey.size(), 32U);
}

TEST_F(RemoteServerTest, ThePageIsTakenByteForByte) {
  ASSERT_TRUE(start());
  EXPECT_EQ(server.page, host.pageBytes);
}

TEST_F(RemoteServerTest, StartingTwiceKeepsTheRunningService) {
  ASSERT_TRUE(start({kWired}));
  const std::string key = server.pairingKey;
  const uint64_t generation = server.generation;
  EXPECT_TRUE(start({kWireless}));
  EXPECT_EQ(server.pairingKey, key);
  EXPECT_EQ(server.generation, generation);
  EXPECT_EQ(server.addresses, std::vector{kWired});
  EXPECT_EQ(sockets.starts, 1);
}

TEST_F(RemoteServerTest, WithoutANetworkNothingStarts) {
  sockets.failsStart = true;
  EXPECT_FALSE(start({kWired}));
  EXPECT_EQ(error, u"Winsock 初始化失败");
  expectNothingLeft();
}

TEST_F(RemoteServerTest, WithoutRandomBytesNothingStarts) {
  host.failsRandom = true;
  EXPECT_FALSE(start({kWired}));
  EXPECT_EQ(error, u"配对密钥生成失败");
  expectNothingLeft();
}

TEST_F(RemoteServerTest, WithoutAPageNothingStarts) {
  host.hasPage = false;
  EXPECT_FALSE(start({kWired}));
  EXPECT_EQ(error, u"遥控页面资源缺失");
  expectNothingLeft();
}

TEST_F(RemoteServerTest, OneTakenAddressUndoesTheWholeStart) {
  for (const uint32_t taken : {kWired, kWireless, kLoopback}) {
    sockets.taken = {taken};
    EXPECT_FALSE(start({kWired, kWireless}));
    EXPECT_EQ(error, kPortText);
    expectNothingLeft();
  }
}

TEST_F(RemoteServerTest, AFailedStartCanBeTriedAgain) {
  sockets.taken = {kLoopback};
  EXPECT_FALSE(start());
  sockets.taken.clear();
  EXPECT_TRUE(start());
}

TEST_F(RemoteServerTest, AFailedStartKeepsTheGeneration) {
  const uint64_t before = server.generation;
  sockets.failsStart = true;
  EXPECT_FALSE(start());
  EXPECT_EQ(server.generation, before);
}

TEST_F(RemoteServerTest, EveryStartAndEveryStopIsANewGeneration) {
  ASSERT_TRUE(start());
  EXPECT_EQ(server.generation, 1U);
  stopServer(server);
  EXPECT_EQ(server.generation, 2U);
  ASSERT_TRUE(start());
  EXPECT_EQ(server.generation, 3U);
}

TEST_F(RemoteServerTest, AStopLeavesNothingBehind) {
  ASSERT_TRUE(start({kWired}));
  stopServer(server);
  expectNothingLeft();
}

TEST_F(RemoteServerTest, AStopIsSafeWhenNothingRuns) {
  stopServer(server);
  stopServer(server);
  expectNothingLeft();
  EXPECT_EQ(server.generation, 2U);  // even this stop invalidates queued requests
}

TEST_F(RemoteServerTest, AThreadOfAnEarlierRunIsJoinedFirst) {
  ASSERT_TRUE(start());
  server.running = false;
  ASSERT_TRUE(start({kWired}));
  EXPECT_TRUE(server.running);
  EXPECT_EQ(sockets.bound.size(), 2U);
  EXPECT_EQ(sockets.sessions, 1);
}

TEST_F(RemoteServerTest, AServerThatGoesStopsItself) {
  ASSERT_TRUE(start({kWired}));
  owned.reset();
  EXPECT_TRUE(sockets.bound.empty());
  EXPECT_EQ(sockets.sessions, 0);
}

TEST_F(RemoteServerTest, TheThreadServesWhoeverWaits) {
  PeerFake peer;
  peer.chunks = {"GET / HTTP/1.1\r\nHost: localhost\r\n\r\n"};
  sockets.waiting = {{1, &peer}};
  ASSERT_TRUE(start({kWired}));
  while (sockets.idleWaits == 0) std::this_thread::yield();
  stopServer(server);
  EXPECT_TRUE(peer.received.ends_with(host.pageBytes));
  EXPECT_TRUE(peer.closed);
}

TEST_F(RemoteServerTest, WithSixtyThreeAddressesAllSixtyFourSocketsAreWaitedFor) {
  ASSERT_TRUE(start(std::vector<uint32_t>(63, kWired)));
  while (sockets.idleWaits == 0) std::this_thread::yield();
  stopServer(server);
  EXPECT_EQ(sockets.waits.front().listeners, kMostListeners);
}

}  // namespace
}  // namespace mrl
