// A remote client of the real program: the bytes on the wire, and their effect on the clock.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "base/command_ids.h"
#include "http/raw_client_win.h"
#include "windows/program.h"
#include "windows/standin_fixture.h"

namespace mrl {
namespace {

using standin::TemporaryDeck;
using standin::waitUntil;

class RemoteSystemTest : public testing::Test {
 protected:
  void startTimer(Settings settings = {}) {
    port = static_cast<int32_t>(somePort());
    settings.remotePort = static_cast<uint32_t>(port);
    program.prepare(settings);
    ASSERT_TRUE(program.start());
  }
  std::string ask(const std::string& request) const {
    RawClient client(port);
    client.send(request);
    return client.readAll();
  }
  std::string state() const { return bodyOf(ask(get("/api/state"))); }
  bool stateHas(const std::string& words) const { return state().find(words) != std::string::npos; }

  const Winsock winsock;
  int32_t port = 0;
  Program program;
};

TEST_F(RemoteSystemTest, ThePageOfTheProgramIsServed) {
  startTimer();
  const std::string response = ask(get("/"));
  EXPECT_EQ(statusOf(response), 200);
  const std::string page = bodyOf(response);
  EXPECT_TRUE(page.starts_with("\xEF\xBB\xBF"));
  EXPECT_NE(page.find("<title>Marlune"), std::string::npos);
  EXPECT_TRUE(page.ends_with("</html>\n") || page.ends_with("</html>"));
}

TEST_F(RemoteSystemTest, ThePairingKeyIsLeftForTheTest) {
  startTimer();
  const std::string key = bytesOf(program.folder() + L"\\remote.txt");
  EXPECT_EQ(key.size(), 32u);
  EXPECT_EQ(key.find_first_not_of("0123456789abcdef"), std::string::npos);
}

TEST_F(RemoteSystemTest, ACommandMovesTheRealClock) {
  startTimer();
  EXPECT_TRUE(stateHas("\"time\":\"15:00\",\"running\":false"));
  EXPECT_EQ(statusOf(ask(post("/api/toggle"))), 200);
  EXPECT_TRUE(program.isCounting());
  EXPECT_TRUE(stateHas("\"running\":true"));
  EXPECT_EQ(statusOf(ask(post("/api/duration?seconds=60"))), 200);
  EXPECT_TRUE(waitUntil([&] { return program.text() <= L"01:00"; }));
  EXPECT_EQ(program.settings().duration, 60u);
  EXPECT_EQ(statusOf(ask(post("/api/hide"))), 200);
  EXPECT_FALSE(program.isVisible());
}

TEST_F(RemoteSystemTest, TheStateTellsTheRealShowAndTheRemoteTurnsItsSlides) {
  TemporaryDeck deck(L"remote.pptx");
  standin::Client presentations;
  ASSERT_TRUE(presentations.start(L"powerpnt.exe"));
  ASSERT_EQ(presentations.command(L"open \"" + deck.path + L"\""), L"ok");
  ASSERT_EQ(presentations.command(L"show"), L"ok");
  startTimer();
  EXPECT_TRUE(waitUntil([&] { return stateHas("\"showing\":true,\"slide\":1"); }));
  EXPECT_EQ(statusOf(ask(post("/api/next"))), 200);
  EXPECT_TRUE(waitUntil([&] { return stateHas("\"slide\":2"); }));
  EXPECT_EQ(statusOf(ask(post("/api/exit"))), 200);
  EXPECT_TRUE(waitUntil([&] { return stateHas("\"showing\":false"); }));
}

TEST_F(RemoteSystemTest, AFormIsSavedToTheRealFile) {
  startTimer();
  const std::string snapshot = bodyOf(ask(get("/api/controls")));
  const std::string revision = snapshot.substr(snapshot.find(':') + 2, 16);
  std::string form = "revision=" + revision;
  const std::string values = snapshot.substr(snapshot.find("\"values\":{") + 10);
  for (size_t at = 0; at < values.size();) {
    const size_t name = values.find('"', at) + 1;
    const size_t nameEnd = values.find('"', name);
    const size_t valueEnd = values.find_first_of(",}", nameEnd);
    std::string value = values.substr(nameEnd + 2, valueEnd - nameEnd - 2);
    if (value == "true") value = "1";
    if (value == "false") value = "0";
    const std::string key = values.substr(name, nameEnd - name);
    form += '&' + key + '=' + (key == "opacity" ? "42" : value);
    if (values[valueEnd] == '}') break;
    at = valueEnd;
  }
  const std::string length = "Content-Length: " + std::to_string(form.size()) + "\r\n";
  EXPECT_EQ(statusOf(ask(post("/api/controls", length, form))), 200);
  EXPECT_EQ(program.settings().opacity, 42u);
  EXPECT_EQ(statusOf(ask(post("/api/controls", length, form))), 409) << "stale now";
}

TEST_F(RemoteSystemTest, EveryRefusalOfTheTransport) {
  startTimer();
  EXPECT_EQ(statusOf(ask("nonsense\r\n\r\n")), 400);
  EXPECT_EQ(statusOf(ask(get("/", ""))), 403);
  EXPECT_EQ(statusOf(ask(get("/", "Host: rebound.example\r\n"))), 403);
  EXPECT_EQ(statusOf(ask(get("/", "Host: localhost\r\nOrigin: http://site.example\r\n"))), 403);
  EXPECT_EQ(statusOf(ask(get("/other"))), 404);
  EXPECT_EQ(statusOf(ask(get("/api/toggle"))), 405);
  EXPECT_EQ(statusOf(ask(post("/api/state"))), 405);
  EXPECT_EQ(statusOf(ask(get("/api/state?x=1"))), 400);
  EXPECT_EQ(statusOf(ask(post("/api/nonsense"))), 409);
  EXPECT_EQ(statusOf(ask(post("/api/controls", "Content-Length: 8193\r\n"))), 400);
  EXPECT_TRUE(stateHas("\"running\":false")) << "and none of it did anything";
}

TEST_F(RemoteSystemTest, APeerThatSaysNothingGetsItsAnswerAndTheNextOneIsServed) {
  startTimer();
  RawClient silent(port);
  EXPECT_EQ(statusOf(silent.readAll()), 400);
  EXPECT_EQ(statusOf(ask(get("/api/state"))), 200);
}

TEST_F(RemoteSystemTest, WithoutAutomaticStartNobodyListens) {
  Settings settings;
  settings.remoteAutoStart = false;
  startTimer(settings);
  EXPECT_FALSE(RawClient(port).isConnected());
  EXPECT_FALSE(std::filesystem::exists(program.folder() + L"\\remote.txt"));
}

TEST_F(RemoteSystemTest, APortInUseStopsNothingButTheService) {
  startTimer();
  Program second;
  Settings settings;
  settings.remotePort = static_cast<uint32_t>(port);
  second.prepare(settings);
  ASSERT_TRUE(second.start());
  EXPECT_FALSE(std::filesystem::exists(second.folder() + L"\\remote.txt"));
  EXPECT_EQ(statusOf(ask(get("/api/state"))), 200) << "the first one goes on";
}

TEST_F(RemoteSystemTest, ThePageOpensOnCommandButNoBrowserInATest) {
  startTimer();
  program.command(kCommandOpenRemote);
  EXPECT_EQ(bytesOf(program.folder() + L"\\remote-opened.txt"), "opened");
}

TEST_F(RemoteSystemTest, TheProgramEndsWithAPhoneInTheMiddleOfARequest) {
  startTimer();
  RawClient waiting(port);
  waiting.send("GET / HTTP/1.1\r\nHost: local");
  program.command(kCommandExit);
  DWORD exitCode = 1;
  EXPECT_TRUE(program.waitForEnd(exitCode));
  EXPECT_EQ(exitCode, 0u);
}

}  // namespace
}  // namespace mrl
