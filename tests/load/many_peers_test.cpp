// Peers that hold on to connections, the usual way to break a small server.
#include <fcntl.h>
#include <sys/resource.h>

#include "remote/service_fixture_posix.h"

namespace mrl {
namespace {

void allowDescriptors() {
  rlimit limit{};
  getrlimit(RLIMIT_NOFILE, &limit);
  limit.rlim_cur = limit.rlim_max;
  setrlimit(RLIMIT_NOFILE, &limit);
}

/// Starts a connection without waiting for it: the service accepts only a few at a time.
UniqueHandle<ClientTraits> knock(int32_t port) {
  UniqueHandle<ClientTraits> socket(::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, IPPROTO_TCP));
  sockaddr_in place{};
  place.sin_family = AF_INET;
  place.sin_port = htons(static_cast<uint16_t>(port));
  place.sin_addr.s_addr = kLoopback;
  (void)connect(socket.get(), reinterpret_cast<const sockaddr*>(&place), sizeof place);
  return socket;
}

class ManyPeersTest : public ServiceTest {
 protected:
  /// How long a valid request takes now, in milliseconds.
  uint64_t msUntilServed() {
    const auto from = steady_clock::now();
    EXPECT_EQ(statusFor(get("/")), 200);
    return msSince(from);
  }
  void tell(const std::string& what, uint64_t ms) {
    RecordProperty(what, std::to_string(ms));
    std::cout << what << ": " << ms << " ms\n";
  }
};

TEST_F(ManyPeersTest, AThousandConnectionsThatSayNothingLeaveTheServiceAnswering) {
  allowDescriptors();
  {
    std::vector<UniqueHandle<ClientTraits>> silent;
    for (int i = 0; i < 1000; ++i) silent.push_back(knock(port()));
    EXPECT_TRUE(std::ranges::all_of(silent, [](const auto& one) { return bool(one); }));
    std::this_thread::sleep_for(milliseconds(3000));
  }
  const uint64_t ms = msUntilServed();
  tell("served after a thousand silent connections have gone", ms);
}

TEST_F(ManyPeersTest, EightStalledPeersAreWaitedForOneAfterTheOther) {
  std::vector<std::unique_ptr<RawClient>> stalled;
  for (int i = 0; i < 8; ++i) {
    stalled.push_back(std::make_unique<RawClient>(port()));
    ASSERT_TRUE(stalled.back()->send("GET / HTT"));
  }
  const uint64_t ms = msUntilServed();
  tell("the ninth peer is served behind eight stalled ones", ms);
  EXPECT_GT(ms, 8 * 1400U);
}

TEST_F(ManyPeersTest, AReaderOfOneByteASecondIsGivenUp) {
  stopServer(app.remote);
  served.fakes.serviceHost.pageBytes.assign(64 << 20, 'x');  // far more than a socket buffer holds
  ASSERT_TRUE(start());
  RawClient slow(port());
  slow.send(get("/"));
  EXPECT_EQ(slow.readSome(1).size(), 1U);
  std::thread reader([&slow] {
    for (int i = 0; i < 3; ++i) {
      std::this_thread::sleep_for(milliseconds(1000));
      (void)slow.readSome(1);
    }
  });
  const auto from = steady_clock::now();
  RawClient next(port());
  next.send("GET /none HTTP/1.1\r\nHost: localhost\r\n\r\n");
  EXPECT_EQ(statusOf(next.readAll()), 404);
  const uint64_t ms = msSince(from);
  tell("served behind a reader of one byte a second", ms);
  reader.join();
}

}  // namespace
}  // namespace mrl
