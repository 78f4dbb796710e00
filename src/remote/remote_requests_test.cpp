#include "remote/remote_requests.h"

#include "core/app_fixture.h"
#include "http/hand_over.h"
#include "remote/controls.h"
#include "remote/state.h"

namespace mrl {
namespace {

constexpr char kClosed[] = R"({"error":"遥控服务已关闭，请重新连接"})";
constexpr char kTooLate[] = R"({"error":"操作已超时，请刷新后重试"})";

class RemoteRequestsTest : public AppFixture {
 protected:
  void SetUp() override {
    start();
    app.remote.running = true;
    app.remote.generation = 5;
  }
  void TearDown() override { app.remote.running = false; }

  std::shared_ptr<RemoteRequest> make(const std::string& command) {
    auto request = makeRequest(app.remote, interfaces);
    request->command = command;
    return request;
  }
  std::shared_ptr<RemoteRequest> run(const std::string& command) {
    auto request = make(command);
    onRemoteRequest(app, *request);
    return request;
  }
  Answer handOver(const std::shared_ptr<RemoteRequest>& request) {
    return mrl::handOver(app.remote, interfaces, request);
  }
  static bool isAnswered(RemoteRequest& request) { return request.done->wait(0); }

  HandOverInterfaces interfaces{clock, requests};
};

TEST_F(RemoteRequestsTest, AStoppedServiceRunsNothing) {
  const auto request = make("toggle");
  app.remote.running = false;
  onRemoteRequest(app, *request);
  EXPECT_EQ(request->status, 503);
  EXPECT_EQ(request->response, kClosed);
  EXPECT_TRUE(isAnswered(*request));
  EXPECT_EQ(phase(), TimerPhase::Idle);
}

TEST_F(RemoteRequestsTest, ARequestOfAnEarlierRunIsNotCarriedOut) {
  const auto request = make("toggle");
  app.remote.generation += 2;  // one stop and one start
  onRemoteRequest(app, *request);
  EXPECT_EQ(request->status, 503);
  EXPECT_EQ(request->response, kClosed);
  EXPECT_TRUE(isAnswered(*request));
  EXPECT_EQ(phase(), TimerPhase::Idle);
}

TEST_F(RemoteRequestsTest, AClosedServiceIsToldBeforeALateRequest) {
  const auto request = make("toggle");
  clock.advance(60'000);
  app.remote.running = false;
  onRemoteRequest(app, *request);
  EXPECT_EQ(request->response, kClosed);
}

TEST_F(RemoteRequestsTest, ARequestIsCarriedOutUpToItsDeadlineAndNotAfter) {
  const auto inTime = make("state");
  const auto late = make("state");
  clock.advance(2500);
  onRemoteRequest(app, *inTime);
  EXPECT_EQ(inTime->status, 200);
  clock.advance(1);
  onRemoteRequest(app, *late);
  EXPECT_EQ(late->status, 503);
  EXPECT_EQ(late->response, kTooLate);
  EXPECT_TRUE(isAnswered(*late));
}

TEST_F(RemoteRequestsTest, ALateCommandChangesNothing) {
  const auto request = make("toggle");
  clock.advance(2501);
  onRemoteRequest(app, *request);
  EXPECT_EQ(phase(), TimerPhase::Idle);
}

TEST_F(RemoteRequestsTest, ACommandWhoseClientHasGivenUpIsStillCarriedOut) {
  const auto request = make("toggle");
  EXPECT_EQ(handOver(request).status, 503);
  clock.advance(2400);
  onRemoteRequest(app, *requests.queued.front());
  EXPECT_EQ(phase(), TimerPhase::Running);
}

TEST_F(RemoteRequestsTest, ACommandIsAnsweredWithTheStateThatItLeft) {
  const auto request = run("toggle");
  EXPECT_EQ(request->response, buildStateJson(app));
  EXPECT_EQ(phase(), TimerPhase::Running);
}

TEST_F(RemoteRequestsTest, ControlsAreAnsweredWithTheControls) {
  const auto request = run("controls");
  EXPECT_EQ(request->status, 200);
  EXPECT_EQ(request->response, controlsSnapshotJson(app));
}

TEST_F(RemoteRequestsTest, AFormThatIsRefusedIsAConflictAndChangesNothing) {
  const Settings before = app.settings;
  const auto request = make("controls-save");
  request->body = "duration=abc";
  onRemoteRequest(app, *request);
  EXPECT_EQ(request->status, 409);
  EXPECT_TRUE(request->response.starts_with("{\"error\":\"")) << request->response;
  EXPECT_TRUE(app.settings == before);
}

TEST_F(RemoteRequestsTest, ASavedFormIsAnsweredWithTheNewControls) {
  const auto request = make("controls-save");
  request->body = "revision=" + controlsRevision(app.settings);
  Settings copy = app.settings;
  for (const ControlField& field : controlFields(copy)) {
    const auto text = [](auto* value) { return std::to_string(*value); };
    request->body += '&' + field.name + '=';
    request->body += field.name == "opacity" ? "60" : std::visit(text, field.target);
  }
  onRemoteRequest(app, *request);
  EXPECT_EQ(request->status, 200);
  EXPECT_EQ(app.settings.opacity, 60u);
  EXPECT_EQ(request->response, controlsSnapshotJson(app));
}

TEST_F(RemoteRequestsTest, TheInternalWordWithoutABodyIsStale) {
  const auto request = run("controls-save");
  EXPECT_EQ(request->status, 409);
  EXPECT_EQ(request->response,
            R"({"error":"电脑设置已更新。遥控端草稿已保留，请重新加载后确认。"})");
}

TEST_F(RemoteRequestsTest, TheEndOfTheProgramLetsGoOfWhatIsQueuedAndRunsNoneOfIt) {
  const auto request = make("toggle");
  (void)handOver(request);
  finishApp(app);
  EXPECT_FALSE(app.remote.running);
  EXPECT_EQ(requests.drains, 1);
  EXPECT_EQ(request.use_count(), 1);
  EXPECT_EQ(request->response, "");
  EXPECT_FALSE(isAnswered(*request));
  EXPECT_EQ(phase(), TimerPhase::Idle);
}

TEST_F(RemoteRequestsTest, AnUnknownCommandIsAConflictWithItsReason) {
  const auto request = run("nonsense");
  EXPECT_EQ(request->status, 409);
  EXPECT_EQ(request->response, R"({"error":"未知操作。"})");
  EXPECT_TRUE(isAnswered(*request));
}

}  // namespace
}  // namespace mrl
