#include "http/http_rules.h"

#include <gtest/gtest.h>

#include "http/ipv4.h"

namespace mrl {
namespace {

constexpr uint32_t kLan = ipv4(192, 168, 1, 5);
constexpr int32_t kPort = 8080;

std::string request(const std::string& host, const std::string& origin = "") {
  return "GET / HTTP/1.1\r\nHost: " + host + "\r\n" +
         (origin.empty() ? "" : "Origin: " + origin + "\r\n") + "\r\n";
}

struct HostCase {
  const char* host;
  bool goodOnLan;
  bool goodOnLoopback;
};

TEST(HttpRulesTest, ARequestMustNameTheAddressOnWhichItArrived) {
  const HostCase cases[] = {
      {"192.168.1.5", true, false},
      {"192.168.1.5:8080", true, false},
      {"192.168.1.5:80", false, false},
      {"192.168.1.5:08080", false, false},
      {"192.168.1.5:", false, false},
      {"192.168.1.6", false, false},
      {"192.168.001.5", false, false},
      {"192.168.1.5.", false, false},
      {"192.168.1.50", false, false},
      {"http://192.168.1.5", false, false},
      {"user@192.168.1.5", false, false},
      {"127.0.0.1", false, true},
      {"127.0.0.1:8080", false, true},
      {"127.0.0.1:80", false, false},
      {"127.0.0.2", false, false},
      {"localhost", false, true},
      {"localhost:8080", false, true},
      {"localhost:80", false, false},
      {"LOCALHOST", false, false},
      {"localhost.", false, false},
      {"0.0.0.0", false, false},
      {"[::1]:8080", false, false},
      {"marlune.local", false, false},
      {"evil.example", false, false},
      {"", false, false},
  };
  for (const HostCase& row : cases) {
    EXPECT_EQ(namesThisService(request(row.host), kLan, kPort), row.goodOnLan) << row.host;
    EXPECT_EQ(namesThisService(request(row.host), kLoopback, kPort), row.goodOnLoopback)
        << row.host;
  }
}

TEST(HttpRulesTest, LoopbackIsEveryAddressThatStartsWith127) {
  EXPECT_TRUE(namesThisService(request("localhost"), ipv4(127, 9, 9, 9), kPort));
  EXPECT_TRUE(namesThisService(request("127.9.9.9"), ipv4(127, 9, 9, 9), kPort));
  EXPECT_FALSE(namesThisService(request("127.0.0.1"), ipv4(127, 9, 9, 9), kPort));
  EXPECT_FALSE(namesThisService(request("localhost"), ipv4(1, 0, 0, 127), kPort));
}

TEST(HttpRulesTest, ARequestWithoutAHostIsBadWhateverItAsksFor) {
  for (const char* target : {"/", "/api/state", "/x"}) {
    const std::string raw = std::string("GET ") + target + " HTTP/1.1\r\nA: b\r\n\r\n";
    EXPECT_FALSE(namesThisService(raw, kLan, kPort)) << target;
    EXPECT_FALSE(namesThisService(raw, kLoopback, kPort)) << target;
  }
}

TEST(HttpRulesTest, APageMustComeFromTheHostThatItNames) {
  const std::string host = "192.168.1.5:8080";
  EXPECT_TRUE(namesThisService(request(host), kLan, kPort));
  EXPECT_TRUE(namesThisService(request(host, "http://192.168.1.5:8080"), kLan, kPort));
  for (const char* origin :
       {"HTTP://192.168.1.5:8080", "http://192.168.1.5:8080/", "https://192.168.1.5:8080",
        "http://192.168.1.5", "http://192.168.1.6:8080", "http://evil.example", "null",
        "192.168.1.5:8080", "http://192.168.1.5:8080 http://evil.example"}) {
    EXPECT_FALSE(namesThisService(request(host, origin), kLan, kPort)) << origin;
  }
}

TEST(HttpRulesTest, AnOriginIsComparedWithTheHostAsItWasWritten) {
  EXPECT_TRUE(namesThisService(request("localhost", "http://localhost"), kLoopback, kPort));
  EXPECT_FALSE(namesThisService(request("localhost", "http://localhost:8080"), kLoopback, kPort));
  EXPECT_FALSE(namesThisService(request("localhost", "http://127.0.0.1"), kLoopback, kPort));
}

TEST(HttpRulesTest, AnEmptyOriginIsNone) {
  const std::string raw = "GET / HTTP/1.1\r\nHost: 192.168.1.5\r\nOrigin: \t\r\n\r\n";
  EXPECT_TRUE(namesThisService(raw, kLan, kPort));
}

TEST(HttpRulesTest, AGoodOriginDoesNotHealABadHost) {
  EXPECT_FALSE(namesThisService(request("evil.example", "http://evil.example"), kLan, kPort));
}

TEST(HttpRulesTest, AnAddressThatCanNotBeToldMatchesOnlyAMissingHost) {
  EXPECT_TRUE(namesThisService("GET / HTTP/1.1\r\n\r\n", std::nullopt, kPort));
  EXPECT_FALSE(namesThisService(request("localhost"), std::nullopt, kPort));
  EXPECT_FALSE(namesThisService(request("192.168.1.5"), std::nullopt, kPort));
}

TEST(HttpRulesTest, OfTwoHostsTheFirstCounts) {
  const std::string two = "GET / HTTP/1.1\r\nHost: evil.example\r\nHost: 192.168.1.5\r\n\r\n";
  EXPECT_FALSE(namesThisService(two, kLan, kPort));
}

RouteDecision route(std::string_view method, std::string_view target) {
  return routeOf({method, target});
}

TEST(HttpRulesTest, ThePageIsServedAtTheRootAlone) {
  EXPECT_EQ(route("GET", "/").route, Route::Page);
  for (const char* method : {"POST", "HEAD", "get", "OPTIONS", ""}) {
    EXPECT_EQ(route(method, "/").route, Route::NotFound) << method;
  }
  for (const char* target : {"/?x=1", "//", "/index.html", "/favicon.ico", "", "*", "/%2F"}) {
    EXPECT_EQ(route("GET", target).route, Route::NotFound) << target;
  }
}

TEST(HttpRulesTest, OnlyWhatStartsWithApiIsACommand) {
  for (const char* target :
       {"/api", "/api?x", "/API/state", "/Api/state", "api/state", "/apix/", "/../api/state",
        "//api/state", "/./api/state", "/%61pi/state", "http://me/api/state", "/..%2fapi/state"}) {
    EXPECT_EQ(route("POST", target).route, Route::NotFound) << target;
    EXPECT_EQ(route("GET", target).route, Route::NotFound) << target;
  }
}

TEST(HttpRulesTest, AWordIsTakenAsItStands) {
  for (const char* word : {"", "nonsense", "StartPause", "../state", "%73tate", "state/", "a b",
                           "controls-save", "state#", "STATE"}) {
    EXPECT_EQ(route("POST", std::string("/api/") + word), (RouteDecision{Route::Command, word}))
        << word;
  }
}

TEST(HttpRulesTest, StateAndControlsAreReadByGet) {
  for (const char* word : {"state", "controls"}) {
    EXPECT_EQ(route("GET", std::string("/api/") + word), (RouteDecision{Route::Command, word}));
  }
  for (const char* method : {"POST", "HEAD", "get", "PUT", "OPTIONS", "DELETE"}) {
    EXPECT_EQ(route(method, "/api/state").route, Route::WrongMethod) << method;
  }
  EXPECT_EQ(route("PUT", "/api/controls").route, Route::WrongMethod);
}

TEST(HttpRulesTest, EverythingElseIsPosted) {
  for (const char* word : {"toggle", "nonsense", "", "duration", "controls-save"}) {
    EXPECT_EQ(route("GET", std::string("/api/") + word).route, Route::WrongMethod) << word;
    EXPECT_EQ(route("post", std::string("/api/") + word).route, Route::WrongMethod) << word;
  }
}

TEST(HttpRulesTest, TheMethodIsLookedAtBeforeTheArguments) {
  EXPECT_EQ(route("GET", "/api/state?x=1").route, Route::BadArguments);
  EXPECT_EQ(route("POST", "/api/state?x=1").route, Route::WrongMethod);
  EXPECT_EQ(route("GET", "/api/toggle?x=1").route, Route::WrongMethod);
}

TEST(HttpRulesTest, OnlyADurationHasSeconds) {
  EXPECT_EQ(route("POST", "/api/duration?seconds=600000"),
            (RouteDecision{Route::Command, "duration", "600000"}));
  EXPECT_EQ(route("POST", "/api/duration?seconds=0"),
            (RouteDecision{Route::Command, "duration", "0"}));
  for (const char* target :
       {"/api/duration?seconds=1234567", "/api/duration?seconds=", "/api/duration?seconds=+5",
        "/api/duration?seconds=-5", "/api/duration?seconds=5 ", "/api/duration?seconds=5&x=1",
        "/api/duration?Seconds=5", "/api/duration?seconds=%35", "/api/duration?seconds=1e3",
        "/api/duration?", "/api/duration??seconds=5", "/api/file?seconds=5",
        "/api/Duration?seconds=5", "/api/?seconds=5"}) {
    EXPECT_EQ(route("POST", target).route, Route::BadArguments) << target;
  }
}

TEST(HttpRulesTest, AnIdHas16HexadecimalDigits) {
  EXPECT_EQ(route("POST", "/api/file?id=0123456789abcdef"),
            (RouteDecision{Route::Command, "file", "0123456789abcdef"}));
  EXPECT_EQ(route("POST", "/api/file?id=ABCDEF0123456789"),
            (RouteDecision{Route::Command, "file", "ABCDEF0123456789"}));
  for (const char* target :
       {"/api/file?id=0123456789abcde", "/api/file?id=0123456789abcdef0",
        "/api/file?id=", "/api/file?id=0123456789abcdeg", "/api/file?ID=0123456789abcdef",
        "/api/file?id=0123456789abcde%30", "/api/file?id=0123456789abcdef&x=1",
        "/api/file?x=1&id=0123456789abcdef"}) {
    EXPECT_EQ(route("POST", target).route, Route::BadArguments) << target;
  }
}

TEST(HttpRulesTest, AnyCommandMayHaveAnId) {
  EXPECT_EQ(route("POST", "/api/duration?id=0123456789abcdef"),
            (RouteDecision{Route::Command, "duration", "0123456789abcdef"}));
  EXPECT_EQ(route("GET", "/api/state?id=0123456789abcdef"),
            (RouteDecision{Route::Command, "state", "0123456789abcdef"}));
}

TEST(HttpRulesTest, PostedControlsAreAFormWhateverTheQuery) {
  EXPECT_EQ(route("POST", "/api/controls"), (RouteDecision{Route::Form, "controls-save"}));
  EXPECT_EQ(route("POST", "/api/controls?anything"), (RouteDecision{Route::Form, "controls-save"}));
  EXPECT_EQ(route("GET", "/api/controls?anything").route, Route::BadArguments);
}

TEST(HttpRulesTest, TheInternalWordHasNoBodyWhenAskedForDirectly) {
  EXPECT_EQ(route("POST", "/api/controls-save"), (RouteDecision{Route::Command, "controls-save"}));
}

}  // namespace
}  // namespace mrl
