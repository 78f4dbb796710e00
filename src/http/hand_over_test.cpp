#include "http/hand_over.h"

#include <gtest/gtest.h>

#include "base/clock_fake.h"
#include "http/request_queue_fake.h"

namespace mrl {
namespace {

constexpr char kAnswer[] = R"({"answer":1})";

class HandOverTest : public ::testing::Test {
 protected:
  HandOverTest() {
    server.running = true;
    server.generation = 5;
  }

  std::shared_ptr<RemoteRequest> make(const std::string& command) {
    auto request = makeRequest(server, interfaces);
    request->command = command;
    return request;
  }
  Answer handOver(const std::shared_ptr<RemoteRequest>& request) {
    return mrl::handOver(server, interfaces, request);
  }
  /// Answers a request as the UI thread would.
  void answer(RemoteRequest& request) const {
    request.status = status;
    request.response = kAnswer;
    request.done->set();
  }
  /// Answers as soon as the request is posted.
  void answerAtOnce() {
    requests.onPost = [this](RemoteRequest& request) { answer(request); };
  }
  static bool isAnswered(RemoteRequest& request) { return request.done->wait(0); }

  ClockFake clock;
  RequestQueueFake requests;
  RemoteServer server;
  HandOverInterfaces interfaces{clock, requests};
  int32_t status = 200;
};

TEST_F(HandOverTest, ARequestBelongsToThePresentRunAndLives2500Ms) {
  const auto request = make("state");
  EXPECT_EQ(request->generation, 5U);
  EXPECT_EQ(request->deadlineMs, clock.nowMs() + 2500);
  EXPECT_EQ(request->status, 200);
  EXPECT_EQ(request->response, "");
  EXPECT_FALSE(isAnswered(*request));
}

TEST_F(HandOverTest, TheListenerWaits2000MsForTheAnswer) {
  (void)handOver(make("state"));
  EXPECT_EQ(requests.waitedMs, std::vector<uint32_t>{2000});
}

TEST_F(HandOverTest, ARequestGoesToTheWindowThatTheStartNamed) {
  server.targetWindow = {77};
  (void)handOver(make("state"));
  EXPECT_EQ(requests.lastTarget, WindowHandle{77});
}

TEST_F(HandOverTest, AnAnswerInTimeIsPassedOnAsJson) {
  answerAtOnce();
  const auto request = make("state");
  EXPECT_EQ(handOver(request), (Answer{200, kAnswer, kJson}));
}

TEST_F(HandOverTest, ARefusalIsPassedOnAsJson) {
  answerAtOnce();
  status = 409;
  EXPECT_EQ(handOver(make("nonsense")), (Answer{409, kAnswer, kJson}));
}

TEST_F(HandOverTest, AWindowThatIsGoneGives503AndKeepsNothing) {
  requests.postWorks = false;
  const auto request = make("toggle");
  EXPECT_EQ(handOver(request), (Answer{503, "UI unavailable", kPlainText}));
  EXPECT_EQ(request.use_count(), 1);
  EXPECT_TRUE(requests.waitedMs.empty());
}

TEST_F(HandOverTest, NoAnswerInTimeGives503AndTheRequestStaysQueued) {
  const auto request = make("toggle");
  EXPECT_EQ(handOver(request),
            (Answer{503, "UI unavailable; command may be pending. Refresh state before retry.",
                    kPlainText}));
  EXPECT_EQ(requests.queued.size(), 1U);
}

TEST_F(HandOverTest, WithoutAnEventTheRequestRunsButItsClientIsToldThatItMayBePending) {
  requests.eventsWork = false;
  answerAtOnce();
  const auto request = make("state");
  EXPECT_EQ(handOver(request).status, 503);
  EXPECT_EQ(request->response, kAnswer);
}

TEST_F(HandOverTest, ALateAnswerReachesARequestThatTheListenerHasLeft) {
  std::weak_ptr<RemoteRequest> watched;
  {
    const auto request = make("state");
    watched = request;
    (void)handOver(request);
  }
  ASSERT_FALSE(watched.expired());
  answer(*requests.queued.front());
  EXPECT_TRUE(isAnswered(*watched.lock()));
  requests.queued.clear();
  EXPECT_TRUE(watched.expired());
}

}  // namespace
}  // namespace mrl
