#include "http/listener.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

#include "base/clock_fake.h"
#include "http/ipv4.h"
#include "http/request_queue_fake.h"
#include "http/sockets_fake.h"

namespace mrl {
namespace {

/// Serves one connection at a time on the test's own thread, over fakes.
class ListenerTest : public ::testing::Test {
 protected:
  static constexpr int32_t kPort = 8080;
  static constexpr uint64_t kAcceptMs = 1'000'000;

  ListenerTest() {
    server.running = true;
    server.port = kPort;
    server.page = "\xEF\xBB\xBF<p>";
    requests.onPost = [this](RemoteRequest& request) {
      request.status = 200;
      request.response = answer;
      request.done->set();
    };
  }
  ~ListenerTest() override { server.running = false; }

  /// The answer to a request that arrives in these pieces.
  std::string serve(const std::vector<std::string>& chunks) {
    peer.chunks = chunks;
    peer.receives = peer.sends = 0;
    peer.received.clear();
    ConnectionFake connection(peer);
    serveConnection(server, interfaces, connection);
    return peer.received;
  }
  static int statusOf(const std::string& response) {
    return response.starts_with("HTTP/1.1 ") ? std::stoi(response.substr(9, 3)) : 0;
  }
  static std::string bodyOf(const std::string& response) {
    return response.substr(response.find("\r\n\r\n") + 4);
  }
  static std::string get(const std::string& target, const std::string& headers = "") {
    return "GET " + target + " HTTP/1.1\r\nHost: localhost\r\n" + headers + "\r\n";
  }
  static std::string post(const std::string& target, const std::string& headers = "",
                          const std::string& body = "") {
    return "POST " + target + " HTTP/1.1\r\nHost: localhost\r\n" + headers + "\r\n" + body;
  }
  static std::string form(const std::string& body) {
    return post("/api/controls", "Content-Length: " + std::to_string(body.size()) + "\r\n", body);
  }
  static std::vector<std::string> inPiecesOf(size_t size, const std::string& bytes) {
    std::vector<std::string> pieces;
    for (size_t i = 0; i < bytes.size(); i += size) pieces.push_back(bytes.substr(i, size));
    return pieces;
  }
  /// A request whose head is exactly this many bytes long.
  static std::string headOf(size_t size) {
    const std::string start = "GET / HTTP/1.1\r\nHost: localhost\r\nX: ";
    return start + std::string(size - start.size() - 4, 'x') + "\r\n\r\n";
  }
  const RemoteRequest& lastRequest() { return *requests.queued.back(); }

  PeerFake peer;
  ClockFake clock;
  RequestQueueFake requests;
  SocketsFake sockets;
  RemoteServer server;
  std::string answer = "{}";
  HandOverInterfaces interfaces{clock, requests};
};

TEST_F(ListenerTest, ThePageGoesOutByteForByte) {
  const std::string response = serve({get("/")});
  EXPECT_TRUE(response.starts_with(
      "HTTP/1.1 200 Response\r\nContent-Type: text/html; charset=utf-8\r\nContent-Length: 6\r\n"));
  EXPECT_EQ(bodyOf(response), server.page);
}

struct FailureCase {
  const char* request;
  int status;
  const char* body;
};

TEST_F(ListenerTest, EachFailureHasItsStatusAndText) {
  const FailureCase cases[] = {
      {"", 400, "Bad request"},
      {"GET / HTTP/1.1\r\nHost: localhost\r\n", 400, "Bad request"},
      {"GET /\r\nHost: localhost\r\n\r\n", 400, "Bad request"},
      {"GET /api/state?x=1 HTTP/1.1\r\nHost: localhost\r\n\r\n", 400, "Bad request"},
      {"POST /api/controls HTTP/1.1\r\nHost: localhost\r\n\r\n", 400, "Bad request"},
      {"GET / HTTP/1.1\r\n\r\n", 403, "Invalid request origin"},
      {"GET /none HTTP/1.1\r\nHost: you\r\n\r\n", 403, "Invalid request origin"},
      {"POST /api/toggle HTTP/1.1\r\nHost: localhost\r\nOrigin: null\r\n\r\n", 403,
       "Invalid request origin"},
      {"GET /none HTTP/1.1\r\nHost: localhost\r\n\r\n", 404, "Not found"},
      {"POST / HTTP/1.1\r\nHost: localhost\r\n\r\n", 404, "Not found"},
      {"POST /api/state HTTP/1.1\r\nHost: localhost\r\n\r\n", 405, "Method not allowed"},
      {"GET /api/toggle HTTP/1.1\r\nHost: localhost\r\n\r\n", 405, "Method not allowed"},
  };
  for (const FailureCase& row : cases) {
    const std::string response =
        serve(row.request[0] == '\0' ? std::vector<std::string>{}
                                     : std::vector{std::string(row.request)});
    EXPECT_EQ(statusOf(response), row.status) << row.request;
    EXPECT_EQ(bodyOf(response), row.body) << row.request;
    EXPECT_NE(response.find("\r\nContent-Type: text/plain; charset=utf-8\r\n"), std::string::npos);
  }
  EXPECT_TRUE(requests.queued.empty());
}

TEST_F(ListenerTest, ARequestMayComeByteByByte) {
  EXPECT_EQ(statusOf(serve(inPiecesOf(1, get("/")))), 200);
}

TEST_F(ListenerTest, NoMoreIsReadBehindTheHead) {
  serve({get("/"), get("/")});
  EXPECT_EQ(peer.receives, 1U);
}

TEST_F(ListenerTest, TwoRequestsInOneWriteAreOneCommandAndOneAnswer) {
  const std::string response = serve({post("/api/toggle") + post("/api/reset")});
  EXPECT_EQ(requests.queued.size(), 1U);
  EXPECT_EQ(lastRequest().command, "toggle");
  EXPECT_EQ(response.find("HTTP/1.1", 1), std::string::npos);
}

TEST_F(ListenerTest, AHeadMayRunOver8192BytesInTheReceiveThatCrossesThem) {
  EXPECT_EQ(statusOf(serve(inPiecesOf(2048, headOf(8192)))), 200);
  // 8191 bytes, then one receive of the maximum size.
  const std::string longest = headOf(10239);
  std::vector<std::string> pieces = inPiecesOf(2048, longest.substr(0, 8191));
  pieces.push_back(longest.substr(8191));
  EXPECT_EQ(statusOf(serve(pieces)), 200);
}

TEST_F(ListenerTest, NoReceiveOfHeadOrBodyTakesMoreThan2048Bytes) {
  serve({get("/")});
  EXPECT_EQ(peer.bufferBytes, 2048U);
  const std::string request = form(std::string(5000, 'x'));
  peer.bufferBytes.reset();
  EXPECT_EQ(statusOf(serve(inPiecesOf(2048, request))), 200);
  EXPECT_EQ(peer.bufferBytes, 2048U);
}

TEST_F(ListenerTest, AHeadThatHasNotEndedAt8192BytesIsReadNoFurther) {
  EXPECT_EQ(statusOf(serve(inPiecesOf(2048, headOf(8193)))), 400);
  EXPECT_EQ(peer.receives, 4U);
}

TEST_F(ListenerTest, AMegabyteWithoutALineEndIsGivenUpAt8192Bytes) {
  EXPECT_EQ(statusOf(serve(inPiecesOf(2048, std::string(1 << 20, 'x')))), 400);
  EXPECT_EQ(peer.receives, 4U);
}

TEST_F(ListenerTest, AHeadThatTakesTwoSecondsIsGivenUp) {
  peer.onReceive = [this] { clock.advance(500); };
  EXPECT_EQ(statusOf(serve(inPiecesOf(1, get("/")))), 400);
  EXPECT_EQ(peer.receives, 4U);
}

TEST_F(ListenerTest, AHeadThatTakesALittleLessThanTwoSecondsIsServed) {
  peer.onReceive = [this] { clock.advance(1999); };
  const std::string request = get("/");
  EXPECT_EQ(statusOf(serve({request.substr(0, 9), request.substr(9)})), 200);
  peer.onReceive = [this] { clock.advance(2000); };
  EXPECT_EQ(statusOf(serve({request.substr(0, 9), request.substr(9)})), 400);
}

TEST_F(ListenerTest, ARequestWithItsEndIsServedHoweverLateThatCame) {
  peer.onReceive = [this] { clock.advance(60'000); };
  EXPECT_EQ(statusOf(serve({get("/")})), 200);
}

TEST_F(ListenerTest, AReceiveThatFailsEndsTheReadingLikeAPeerThatClosed) {
  for (const int result : {0, -1}) {
    peer.silence = result;
    EXPECT_EQ(statusOf(serve({"GET / HTTP/1.1\r\n"})), 400) << result;
    EXPECT_EQ(statusOf(serve({post("/api/controls", "Content-Length: 4\r\n", "abc")})), 400)
        << result;
  }
}

TEST_F(ListenerTest, TheRulesLookAtTheConnectionsOwnAddress) {
  peer.localAddress = ipv4(192, 168, 1, 5);
  EXPECT_EQ(statusOf(serve({get("/")})), 403);
  EXPECT_EQ(statusOf(serve({"GET / HTTP/1.1\r\nHost: 192.168.1.5:8080\r\n\r\n"})), 200);
  peer.localAddress = std::nullopt;
  EXPECT_EQ(statusOf(serve({get("/")})), 403);
  EXPECT_EQ(statusOf(serve({"GET / HTTP/1.1\r\n\r\n"})), 200);
}

TEST_F(ListenerTest, ACommandIsHandedOverWithItsArgument) {
  server.generation = 7;
  answer = R"({"time":"00:10"})";
  const std::string response = serve({post("/api/duration?seconds=90")});
  EXPECT_EQ(lastRequest().command, "duration");
  EXPECT_EQ(lastRequest().argument, "90");
  EXPECT_EQ(lastRequest().body, "");
  EXPECT_EQ(lastRequest().generation, 7U);
  EXPECT_EQ(lastRequest().deadlineMs, clock.nowMs() + 2500);
  EXPECT_EQ(statusOf(response), 200);
  EXPECT_NE(response.find("\r\nContent-Type: application/json; charset=utf-8\r\n"),
            std::string::npos);
  EXPECT_EQ(bodyOf(response), answer);
}

TEST_F(ListenerTest, ARefusalKeepsItsStatusAndItsJson) {
  requests.onPost = [](RemoteRequest& request) {
    request.status = 409;
    request.response = R"({"error":"x"})";
    request.done->set();
  };
  const std::string response = serve({post("/api/nonsense")});
  EXPECT_TRUE(response.starts_with(
      "HTTP/1.1 409 Response\r\nContent-Type: application/json; charset=utf-8\r\n"));
  EXPECT_EQ(bodyOf(response), R"({"error":"x"})");
}

TEST_F(ListenerTest, AProgramThatDoesNotAnswerIsToldInPlainText) {
  const std::string head = "HTTP/1.1 503 Response\r\nContent-Type: text/plain; charset=utf-8\r\n";
  requests.onPost = nullptr;
  std::string response = serve({post("/api/toggle")});
  EXPECT_TRUE(response.starts_with(head));
  EXPECT_EQ(bodyOf(response),
            "UI unavailable; command may be pending. Refresh state before retry.");
  requests.postWorks = false;
  response = serve({post("/api/toggle")});
  EXPECT_TRUE(response.starts_with(head));
  EXPECT_EQ(bodyOf(response), "UI unavailable");
}

TEST_F(ListenerTest, AnEmptyWordIsHandedOverToo) {
  serve({post("/api/")});
  EXPECT_EQ(lastRequest().command, "");
}

TEST_F(ListenerTest, AFormIsHandedOverWithItsBody) {
  EXPECT_EQ(statusOf(serve({form("duration=90&down=1")})), 200);
  EXPECT_EQ(lastRequest().command, "controls-save");
  EXPECT_EQ(lastRequest().body, "duration=90&down=1");
}

TEST_F(ListenerTest, ABodyMayComeInPiecesAndHoldAnyBytes) {
  const std::string body("\0\r\n\r\n\xFF", 6);
  EXPECT_EQ(statusOf(serve(inPiecesOf(1, form(body)))), 200);
  EXPECT_EQ(lastRequest().body, body);
}

TEST_F(ListenerTest, ABodyOf8192BytesIsTaken) {
  const std::string body(8192, 'x');
  EXPECT_EQ(statusOf(serve(inPiecesOf(2048, form(body)))), 200);
  EXPECT_EQ(lastRequest().body, body);
  EXPECT_EQ(statusOf(serve(inPiecesOf(2048, form(body + "x")))), 400);
}

TEST_F(ListenerTest, ExactlyTheBytesOfTheLengthAreTheBody) {
  serve({post("/api/controls", "Content-Length: 3\r\n", "abcdef")});
  EXPECT_EQ(lastRequest().body, "abc");
}

TEST_F(ListenerTest, ABodyThatIsTooShortIsRefused) {
  EXPECT_EQ(statusOf(serve({post("/api/controls", "Content-Length: 4\r\n", "abc")})), 400);
  EXPECT_TRUE(requests.queued.empty());
}

TEST_F(ListenerTest, AFormsQueryIsNotLookedAt) {
  EXPECT_EQ(statusOf(serve({post("/api/controls?anything", "Content-Length: 3\r\n", "abc")})), 200);
  EXPECT_EQ(statusOf(serve({post("/api/controls?anything", "Content-Length: 4\r\n", "abc")})), 400);
}

TEST_F(ListenerTest, AFormsTypeIsNotLookedAt) {
  const std::string headers = "Content-Type: application/json\r\nContent-Length: 3\r\n";
  EXPECT_EQ(statusOf(serve({post("/api/controls", headers, "abc")})), 200);
}

TEST_F(ListenerTest, AChunkedBodyIsRefused) {
  const std::string chunked = "Transfer-Encoding: chunked\r\n";
  EXPECT_EQ(statusOf(serve({post("/api/controls", chunked, "3\r\nabc\r\n0\r\n\r\n")})), 400);
}

TEST_F(ListenerTest, HeadAndBodyShareTwoSeconds) {
  const std::string request = form("abc");
  const size_t split = request.size() - 3;
  // The head takes 1999 ms, the first piece of the body one more.
  std::vector<std::string> pieces{request.substr(0, split), "a", "bc"};
  peer.onReceive = [this] { clock.advance(peer.receives == 0 ? 1999 : 1); };
  EXPECT_EQ(statusOf(serve(pieces)), 400);
  EXPECT_EQ(peer.receives, 2U);
}

TEST_F(ListenerTest, ASlowBodyCanPassTheRequestsDeadline) {
  const std::string request = form("abc");
  peer.onReceive = [this] { clock.advance(1999); };
  serve({request.substr(0, request.size() - 3), "abc"});
  EXPECT_EQ(lastRequest().deadlineMs, kAcceptMs + 1999 + 2500);
}

TEST_F(ListenerTest, ACommandOtherThanAFormHasNoBody) {
  serve({post("/api/toggle", "Content-Length: 3\r\n", "abc")});
  EXPECT_EQ(lastRequest().body, "");
  serve({post("/api/controls-save", "Content-Length: 3\r\n", "abc")});
  EXPECT_EQ(lastRequest().command, "controls-save");
  EXPECT_EQ(lastRequest().body, "");
}

TEST_F(ListenerTest, HeadersInATargetStayInTheTarget) {
  const std::string response =
      serve({"GET /api/x%0d%0aSet-Cookie:a HTTP/1.1\r\nHost: localhost\r\n\r\n"});
  EXPECT_EQ(statusOf(response), 405);
  EXPECT_EQ(response.find("Set-Cookie"), std::string::npos);
}

TEST_F(ListenerTest, AnAnswerGoesOutInAsManySendsAsItTakes) {
  server.page.assign(5000, 'x');
  peer.mostPerSend = 7;
  EXPECT_EQ(bodyOf(serve({get("/")})), server.page);
}

TEST_F(ListenerTest, AnAnswerThatCanNotBeSentIsAbandoned) {
  peer.mostPerSend = 7;
  peer.sendsBeforeFailure = 2;
  for (const int result : {-1, 0}) {
    peer.failedSend = result;
    EXPECT_EQ(serve({get("/")}).size(), 14U);
    EXPECT_EQ(peer.sends, 2U);
  }
}

TEST_F(ListenerTest, AStopEndsTheReadingButNotTheAnswer) {
  peer.onReceive = [this] { server.running = false; };
  const std::string request = get("/");
  EXPECT_EQ(statusOf(serve({request.substr(0, 5), request.substr(5)})), 400);
  EXPECT_EQ(peer.receives, 1U);
  server.running = true;
  EXPECT_EQ(statusOf(serve({request})), 200);  // all of it had arrived
}

TEST_F(ListenerTest, AStopEndsTheReadingOfABody) {
  const std::string request = form("abc");
  peer.onReceive = [this] { server.running = false; };
  EXPECT_EQ(statusOf(serve({request.substr(0, request.size() - 3), "abc"})), 400);
}

/// The accept loop itself; it ends when no peer is waiting any more.
class ListenerLoopTest : public ListenerTest {
 protected:
  ListenerLoopTest() {
    server.session = sockets.start();
    sockets.onIdle = [this] { server.running = false; };
    listenOn(2);
    for (PeerFake& other : peers) other.chunks = {get("/")};
  }
  void listenOn(size_t count) {
    server.listeners.clear();
    for (size_t i = 0; i < count; ++i) {
      server.listeners.push_back(server.session->listen(kLoopback, kPort, 1));
    }
  }
  void runLoop() { runListener(server, interfaces); }

  std::array<PeerFake, 3> peers;
};

TEST_F(ListenerLoopTest, ConnectionsAreServedOneAfterTheOtherAndClosed) {
  std::vector<bool> earlierClosed;
  for (PeerFake& other : peers) sockets.waiting.push_back({0, &other});
  peers[1].onReceive = [&] { earlierClosed.push_back(peers[0].closed); };
  peers[2].onReceive = [&] { earlierClosed.push_back(peers[1].closed); };
  runLoop();
  EXPECT_EQ(earlierClosed, (std::vector{true, true}));
  for (const PeerFake& other : peers) EXPECT_EQ(statusOf(other.received), 200);
  EXPECT_TRUE(peers[2].closed);
}

TEST_F(ListenerLoopTest, AFailedAcceptIsPassedOver) {
  sockets.waiting = {{0, nullptr}, {1, &peers[0]}};
  runLoop();
  EXPECT_EQ(statusOf(peers[0].received), 200);
}

TEST_F(ListenerLoopTest, NothingIsAskedOfTheNetworkWhenTheServiceDoesNotRun) {
  server.running = false;
  runLoop();
  EXPECT_TRUE(sockets.waits.empty());
}

TEST_F(ListenerLoopTest, AllListenersAreWaitedForAFifthOfASecondAtATime) {
  runLoop();
  EXPECT_EQ(sockets.waits, (std::vector<SocketsFake::Wait>{{2, 200}}));
}

TEST_F(ListenerLoopTest, NoCallOnAConnectionBlocksForLongerThan1500Ms) {
  sockets.waiting = {{0, &peers[0]}};
  runLoop();
  EXPECT_EQ(peers[0].callLimitMs, 1500U);
}

}  // namespace
}  // namespace mrl
