// The remote service compared with two web servers that serve the same bytes from memory and also
// close every connection: one client, then eight, for the remote's web page and for the state. Our
// state is requested from the UI thread and built again for each request; theirs is prebuilt. No
// folder is listed: that has its own benchmark.
#include <httplib.h>
#include <microhttpd.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <iterator>

#include "http/listener.h"
#include "remote/remote_service.h"
#include "remote/service_fixture_posix.h"
#include "remote/state.h"

namespace mrl {
namespace {

constexpr int kRounds = 11;
constexpr int kRequestsPerRound = 2000;
constexpr std::chrono::seconds kIdle{5};

struct Figures {
  double perSecond = 0;
  double p99Us = 0;
};

/// A running server. REQUIRES: `page` and `state` outlive it.
class Server {
 public:
  virtual ~Server() = default;
  [[nodiscard]] virtual int32_t port() const = 0;
};

class OurServer : public Server {
 public:
  explicit OurServer(const std::string& page) {
    served.fakes.serviceHost.pageBytes = page;
    std::u16string error;
    for (uint32_t at = 31'000; !app.remote.running; ++at) {
      app.settings.remotePort = at;
      (void)startServer(app, {}, error);
    }
    state = buildStateJson(app);
    ui = std::thread([this] {
      while (!ended) queue.pump(app);
    });
  }
  OurServer(const OurServer&) = delete;
  OurServer& operator=(const OurServer&) = delete;
  ~OurServer() override {
    ended = true;
    ui.join();
  }
  [[nodiscard]] int32_t port() const override { return app.remote.port; }
  [[nodiscard]] const std::string& stateBytes() const { return state; }

 private:
  SocketsPosix sockets;
  PumpedQueue queue;
  ClockPosix clock;
  ServedApp served{sockets, queue, clock};
  App& app = served.app;
  std::string state;
  std::atomic<bool> ended = false;
  std::thread ui;
};

class HttplibServer : public Server {
 public:
  HttplibServer(const std::string& page, const std::string& state) {
    server.set_keep_alive_max_count(1);
    server.Get("/", [&page](const httplib::Request&, httplib::Response& response) {
      response.set_content(page, std::string(kHtml));
    });
    server.Get("/api/state", [&state](const httplib::Request&, httplib::Response& response) {
      response.set_content(state, std::string(kJson));
    });
    boundPort = server.bind_to_any_port("127.0.0.1");
    thread = std::thread([this] { server.listen_after_bind(); });
  }
  HttplibServer(const HttplibServer&) = delete;
  HttplibServer& operator=(const HttplibServer&) = delete;
  ~HttplibServer() override {
    server.stop();
    thread.join();
  }
  [[nodiscard]] int32_t port() const override { return boundPort; }

 private:
  httplib::Server server;
  int32_t boundPort = 0;
  std::thread thread;
};

class MicrohttpdServer : public Server {
 public:
  MicrohttpdServer(const std::string& pageBytes, const std::string& stateBytes)
      : page(pageBytes), state(stateBytes) {
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = kLoopback;
    daemon =
        MHD_start_daemon(MHD_USE_AUTO_INTERNAL_THREAD, 0, nullptr, nullptr, answer, this,
                         MHD_OPTION_SOCK_ADDR, reinterpret_cast<sockaddr*>(&place), MHD_OPTION_END);
    if (daemon == nullptr) std::abort();
  }
  MicrohttpdServer(const MicrohttpdServer&) = delete;
  MicrohttpdServer& operator=(const MicrohttpdServer&) = delete;
  ~MicrohttpdServer() override { MHD_stop_daemon(daemon); }
  [[nodiscard]] int32_t port() const override {
    return MHD_get_daemon_info(daemon, MHD_DAEMON_INFO_BIND_PORT)->port;
  }

 private:
  static MHD_Result answer(void* self, MHD_Connection* connection, const char* url,
                           const char* /*method*/, const char* /*version*/, const char* /*upload*/,
                           size_t* /*size*/, void** /*context*/) {
    const auto& server = *static_cast<MicrohttpdServer*>(self);
    const std::string& bytes = url[1] == '\0' ? server.page : server.state;
    MHD_Response* response = MHD_create_response_from_buffer(
        bytes.size(), const_cast<char*>(bytes.data()), MHD_RESPMEM_PERSISTENT);
    MHD_add_response_header(response, "Connection", "close");
    const MHD_Result result = MHD_queue_response(connection, MHD_HTTP_OK, response);
    MHD_destroy_response(response);
    return result;
  }

  const std::string& page;
  const std::string& state;
  MHD_Daemon* daemon = nullptr;
};

Figures measure(const Server& server, const std::string& target, int clients) {
  const std::string request =
      get(target, "Host: 127.0.0.1:" + std::to_string(server.port()) + "\r\n");
  std::vector<std::future<std::vector<double>>> running;
  const auto from = steady_clock::now();
  for (int i = 0; i < clients; ++i) {
    running.push_back(std::async(std::launch::async, [&request, &server, clients] {
      std::vector<double> times;
      for (int done = 0; done < kRequestsPerRound / clients; ++done) {
        const auto start = steady_clock::now();
        RawClient client(server.port());
        client.send(request);
        if (statusOf(client.readAll()) != 200) std::abort();
        times.push_back(
            std::chrono::duration<double, std::micro>(steady_clock::now() - start).count());
      }
      return times;
    }));
  }
  std::vector<double> all;
  for (auto& one : running) {
    const auto times = one.get();
    all.insert(all.end(), times.begin(), times.end());
  }
  const std::chrono::duration<double> took = steady_clock::now() - from;
  std::ranges::sort(all);
  return {static_cast<double>(all.size()) / took.count(), all[all.size() * 99 / 100]};
}

/// The median of each figure over the rounds.
Figures median(std::vector<Figures> rounds) {
  Figures middle;
  std::ranges::sort(rounds, {}, &Figures::perSecond);
  middle.perSecond = rounds[rounds.size() / 2].perSecond;
  std::ranges::sort(rounds, {}, &Figures::p99Us);
  middle.p99Us = rounds[rounds.size() / 2].p99Us;
  return middle;
}

void compare(const std::vector<std::unique_ptr<Server>>& servers, const std::string& target,
             int clients) {
  std::vector<std::vector<Figures>> rounds(servers.size());
  for (int round = 0; round < kRounds; ++round) {
    for (size_t i = 0; i < servers.size(); ++i) {
      rounds[i].push_back(measure(*servers[i], target, clients));
    }
  }
  constexpr const char* kNames[] = {"marlune", "cpp-httplib", "libmicrohttpd"};
  std::vector<Figures> figures;
  for (size_t i = 0; i < servers.size(); ++i) {
    figures.push_back(median(rounds[i]));
    std::printf("%-11s %d client(s)  %-14s %8.0f requests/s   p99 %7.0f us\n", target.c_str(),
                clients, kNames[i], figures[i].perSecond, figures[i].p99Us);
  }
  const double bestRate = std::max(figures[1].perSecond, figures[2].perSecond);
  const double bestP99 = std::min(figures[1].p99Us, figures[2].p99Us);
  std::printf("%-11s %d client(s)  ours to the better peer: requests/s %.2f, p99 %.2f\n\n",
              target.c_str(), clients, figures[0].perSecond / bestRate, figures[0].p99Us / bestP99);
}

/// CPU time of this process in ms per second while `work` runs on a thread and no client connects.
template <class Work>
double idleMs(std::atomic<bool>& running, Work work) {
  const auto cpuMs = [] { return static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC; };
  running = true;
  std::thread thread(work);
  const double before = cpuMs();
  std::this_thread::sleep_for(kIdle);
  const double used = cpuMs() - before;
  running = false;
  thread.join();
  return used / static_cast<double>(kIdle.count());
}

/// Compared with a thread that only sleeps for the same intervals.
void showIdleCost() {
  SocketsPosix sockets;
  RequestQueuePosix queue;
  ClockPosix clock;
  RemoteServer server;
  server.session = sockets.start();
  server.listeners.push_back(server.session->listen(kLoopback, 0, 1));
  const double ours = idleMs(server.running, [&] { runListener(server, {clock, queue}); });
  const double sleeper = idleMs(server.running, [&] {
    while (server.running) std::this_thread::sleep_for(milliseconds(kWaitForConnectionMs));
  });
  std::printf("idle: marlune %.3f ms of processor time a second, a sleeping thread %.3f\n", ours,
              sleeper);
}

}  // namespace
}  // namespace mrl

int main() {
  mrl::showIdleCost();
  std::ifstream file("src/remote/page.html", std::ios::binary);
  const std::string page(std::istreambuf_iterator<char>(file), {});
  auto ours = std::make_unique<mrl::OurServer>(page);
  const std::string state = ours->stateBytes();
  std::vector<std::unique_ptr<mrl::Server>> servers;
  servers.push_back(std::move(ours));
  servers.push_back(std::make_unique<mrl::HttplibServer>(page, state));
  servers.push_back(std::make_unique<mrl::MicrohttpdServer>(page, state));
  std::printf("page %zu bytes, state %zu bytes\n\n", page.size(), state.size());
  for (const int clients : {1, 8}) {
    for (const char* target : {"/", "/api/state"}) mrl::compare(servers, target, clients);
  }
}
