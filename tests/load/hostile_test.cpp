// A hundred thousand hostile requests.
#include <fstream>

#include "remote/service_fixture_posix.h"

namespace mrl {
namespace {

constexpr int kRequests = 100'000;
constexpr size_t kAllowedGrowthBytes = 8U << 20U;

/// Hand-made requests, sent as they are or with bytes changed, cut off or doubled.
class HostileRequests {
 public:
  std::string next() {
    const std::string& made = kHandMade[pick(kHandMade.size())];
    switch (pick(4)) {
      case 0: return made;
      case 1: return made.substr(0, pick(made.size() + 1));
      case 2: return made + made;
      default: return changed(made);
    }
  }

 private:
  size_t pick(size_t below) { return std::uniform_int_distribution<size_t>(0, below - 1)(random); }
  std::string changed(std::string bytes) {
    for (size_t i = 0; i <= pick(8); ++i) bytes[pick(bytes.size())] = static_cast<char>(pick(256));
    return bytes;
  }
  /// Enough of them that changing a few bytes can't break them all.
  static std::string siteOrigins() {
    std::string headers;
    for (int i = 0; i < 20; ++i) headers += "Origin: http://site.example\r\n";
    return headers;
  }
  static std::string form(const std::string& body) {
    return post("/api/controls", "Content-Length: " + std::to_string(body.size()) + "\r\n", body);
  }
  static std::string rubbish() {
    std::string bytes;
    for (int i = 0; i < 3000; ++i) bytes += static_cast<char>(i * i + 7);
    return bytes;
  }

  // None of these is permitted, and none is one byte away from a request that is.
  const std::vector<std::string> kHandMade = {
      post("/api/nonsense"),
      post("/api/"),
      post("/api/durationseconds=90"),
      post("/api/duration?seconds=1234567&&&&&&&&&&&&"),
      post("/api/filefile?id=../../../../../etc"),
      get("/api/toggletoggle"),
      post("/api/state?state=state"),
      post("/../../../../../windows/system32"),
      get("/%2e%2e/%2e%2e/%2e%2e/etc/passwd"),
      "POST /api/toggle HTTP/1.1\r\nHost: rebound.example\r\n\r\n",
      "POST /api/toggle HTTP/1.1\r\n\r\n",
      "POST /api/toggle HTTP/1.1\r\n" + siteOrigins() + "Host: localhost\r\n\r\n",
      "POST /api/controls HTTP/1.1\r\nHost: rebound.example\r\nContent-Length: 5\r\n\r\na=b&c",
      form("duration=abcdef&down=maybe&opacity=-100&stale=stale"),
      form("%zz%zz%zz%zz%zz%zz&&&&&&====&&&&duration"),
      form(std::string(8192, '&')),
      "POST /api/controls HTTP/1.1\r\nHost: localhost\r\nTransfer-Encoding: chunked\r\n\r\n3\r\n",
      "POST /api/controls HTTP/1.1\r\nHost: localhost\r\nContent-Length: -2000000\r\n\r\n",
      "POST /api/controls HTTP/1.1\r\nHost: localhost\r\nContent-Length: 99999999999999\r\n\r\n",
      "POST /api/x\r\nSet-Cookie: a=b HTTP/1.1\r\nHost: localhost\r\n\r\n",
      "\r\n\r\n\r\n\r\n",
      std::string(2000, 'x'),
      std::string(9000, '\n'),
      std::string(600, '\0'),
      rubbish(),
  };
  std::mt19937 random{20'260'101};  // the same sequence in every run
};

size_t residentBytes() {
  std::ifstream file("/proc/self/statm");
  size_t total = 0;
  size_t resident = 0;
  file >> total >> resident;
  return resident * static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

class HostileTest : public ServiceTest {
 protected:
  /// Sends `count` requests; returns how many were answered with anything but an error status.
  int sendHostile(int count) {
    auto wrong = std::async(std::launch::async, [this, count, to = port()] {
      int bad = 0;
      for (int i = 0; i < count; ++i) {
        RawClient client(to);
        client.send(requests.next());
        client.endSending();
        const std::string response = client.readAll();
        // A peer that sends more than is read may lose its answer to a connection reset.
        if (!response.empty() && statusOf(response) < 400) ++bad;
      }
      return bad;
    });
    while (wrong.wait_for(milliseconds(0)) != std::future_status::ready) queue.pump(app);
    return wrong.get();
  }

  HostileRequests requests;
};

TEST_F(HostileTest, AHundredThousandRequestsLeaveTheServiceAnsweringAndNothingChanged) {
  const Settings before = app.settings;
  std::string file;
  ASSERT_TRUE(app.platform.files.read(app.settingsPath, file));
  EXPECT_EQ(sendHostile(kRequests / 5), 0);
  const size_t resident = residentBytes();
  EXPECT_EQ(sendHostile(kRequests - kRequests / 5), 0);
  const size_t now = residentBytes();
  std::cout << "memory: " << resident / 1024 << " KiB, then " << now / 1024 << " KiB\n";
  EXPECT_LT(now, resident + kAllowedGrowthBytes);

  EXPECT_EQ(statusFor(get("/")), 200);
  EXPECT_EQ(statusFor(get("/api/state")), 200);
  EXPECT_TRUE(app.settings == before);
  std::string after;
  ASSERT_TRUE(app.platform.files.read(app.settingsPath, after));
  EXPECT_EQ(after, file);
  EXPECT_FALSE(timerRuns());
}

}  // namespace
}  // namespace mrl
