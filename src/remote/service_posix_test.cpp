#include "remote/service_fixture_posix.h"

#include "remote/service_contract.inc"

namespace mrl {
namespace {

// These two test shared code, but need behaviour that only this platform guarantees.
TEST_F(ServiceTest, APeerThatNeverReadsItsAnswerHoldsNobodyUpForLong) {
  stopServer(app.remote);
  served.fakes.serviceHost.pageBytes.assign(64U << 20U, 'x');  // more than any socket buffer holds
  ASSERT_TRUE(start());
  RawClient silent(port());
  silent.send(get("/"));
  EXPECT_EQ(statusFor(post("/api/toggle")), 200);
}

TEST_F(RealSocketsTest, NoMoreThan64ListenersAreWaitedFor) {
  std::vector<std::unique_ptr<ListeningSocket>> listeners;
  for (size_t i = 0; i <= kMostListeners; ++i) {
    const auto last = static_cast<uint8_t>(i + 1);
    listeners.push_back(session->listen(ipv4(127, 0, 0, last), port(), 1));
    ASSERT_TRUE(listeners.back());
  }
  const RawClient beyond(port(), ipv4(127, 0, 0, kMostListeners + 1));
  ASSERT_TRUE(beyond.isConnected());
  EXPECT_EQ(session->wait(listeners, 100), nullptr);
  const RawClient within(port(), ipv4(127, 0, 0, kMostListeners));
  EXPECT_EQ(session->wait(listeners, kSoonMs), listeners[kMostListeners - 1].get());
}

}  // namespace
}  // namespace mrl
