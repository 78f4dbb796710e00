// Races between the two threads: late answers, stops, restarts, program exit.
#include "http/hand_over.h"
#include "remote/service_fixture_posix.h"

namespace mrl {
namespace {

constexpr int kRounds = 100'000;

/// Times out much earlier than asked, so that many answers are late.
class ImpatientEvent : public DoneEvent {
 public:
  explicit ImpatientEvent(std::unique_ptr<DoneEvent> event, uint32_t most)
      : real(std::move(event)), mostMs(most) {}
  void set() override { real->set(); }
  bool wait(uint32_t limitMs) override { return real->wait(std::min(limitMs, mostMs)); }

 private:
  std::unique_ptr<DoneEvent> real;
  uint32_t mostMs;
};

class ImpatientQueue : public RequestQueuePosix {
 public:
  std::unique_ptr<DoneEvent> makeEvent() override {
    return std::make_unique<ImpatientEvent>(RequestQueuePosix::makeEvent(),
                                            made++ % 3 == 0 ? 1 : 0);
  }

 private:
  uint32_t made = 0;  // used by the listener's thread only
};

struct Outcomes {
  int answered = 0;
  int closed = 0;
  int pending = 0;
};

Outcomes askAgainAndAgain(const RemoteServer& server, const HandOverInterfaces& interfaces) {
  Outcomes seen;
  for (int i = 0; i < kRounds; ++i) {
    const auto request = makeRequest(server, interfaces);
    request->command = "state";
    const Answer answer = handOver(server, interfaces, request);
    if (answer.type == kPlainText) {
      ++seen.pending;
    } else if (answer.status == 200) {
      ++seen.answered;
    } else {
      ++seen.closed;
    }
  }
  return seen;
}

TEST(HandOverRaceTest, LateAnswersStopsRestartsAndDrainsLoseNothing) {
  SocketsPosix sockets;
  ImpatientQueue queue;
  TestClock clock;
  ServedApp served{sockets, queue, clock};
  App& app = served.app;
  app.remote.running = true;
  const HandOverInterfaces interfaces{clock, queue};
  auto outcomes =
      std::async(std::launch::async, askAgainAndAgain, std::cref(app.remote), interfaces);

  std::shared_ptr<RemoteRequest> late;  // answered after the next one was sent: too late
  int taken = 0;
  int passes = 0;
  while (outcomes.wait_for(milliseconds(0)) != std::future_status::ready) {
    queue.wait(1);
    for (const auto& request : queue.take()) {
      if (late) onRemoteRequest(app, *late);
      late = ++taken % 100 == 0 ? request : nullptr;
      if (!late) onRemoteRequest(app, *request);
    }
    ++passes;
    // The changes that a stop and a start make while a request is in progress.
    if (passes % 50 == 20) {
      app.remote.running = false;
      ++app.remote.generation;
    }
    if (passes % 50 == 25) {
      ++app.remote.generation;
      app.remote.running = true;
    }
    if (passes % 997 == 0) queue.drain();
  }
  queue.drain();
  const Outcomes seen = outcomes.get();
  app.remote.running = false;
  std::cout << seen.answered << " answered, " << seen.closed << " refused, " << seen.pending
            << " given up\n";
  EXPECT_EQ(seen.answered + seen.closed + seen.pending, kRounds);
  EXPECT_GT(seen.answered, 0);
  EXPECT_GT(seen.closed, 0);
  EXPECT_GT(seen.pending, 0);
}

/// Clients that send requests continuously, over real sockets.
class RestartTest : public ServiceTest {
 protected:
  RestartTest() {
    for (auto& one : clients) {
      one = std::async(std::launch::async, [this] {
        int answers = 0;
        while (!ended) {
          const int32_t to = portNow;
          if (to == 0) continue;
          RawClient client(to);
          client.send(post("/api/toggle"));
          if (statusOf(client.readAll()) == 200) ++answers;
        }
        return answers;
      });
    }
  }
  void pumpFor(uint64_t ms) {
    const auto from = steady_clock::now();
    while (msSince(from) < ms) queue.pump(app);
  }
  int endClients() {
    ended = true;
    int answers = 0;
    for (auto& one : clients) answers += one.get();
    return answers;
  }

  std::atomic<bool> ended = false;
  std::atomic<int32_t> portNow = 0;
  std::array<std::future<int>, 3> clients;
};

TEST_F(RestartTest, AServiceThatIsRestartedUnderLoadGoesOnAnswering) {
  portNow = port();
  for (int i = 0; i < 5; ++i) {
    pumpFor(100);
    stopServer(app.remote);
    ASSERT_TRUE(start());
  }
  pumpFor(200);
  finishApp(app);
  EXPECT_GT(endClients(), 0);
  EXPECT_TRUE(queue.take().empty());
}

}  // namespace
}  // namespace mrl
