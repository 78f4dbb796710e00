// The remote service compared with two web servers that serve the same bytes from memory and also
// close every connection: one client, then eight, for the remote's web page and for the state. Our
// state is requested from the UI thread and built again for each request; theirs is prebuilt. No
// folder is listed: that has its own benchmark. The first argument is the number of rounds.
#include <httplib.h>
#include <microhttpd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iterator>

#include "http/listener.h"
#include "remote/remote_service.h"
#include "remote/service_fixture_posix.h"
#include "remote/state.h"

namespace mrl {
namespace {

constexpr int kRequestsPerRound = 1000;

/// One figure a round.
struct Figures {
  std::vector<double> nsPerRequest;  // the inverse of the requests a second
  std::vector<double> p99Ns;
};

/// A running server. REQUIRES: `page` and `state` outlive it.
class Server {
 public:
  virtual ~Server() = default;
  [[nodiscard]] virtual const char* name() const = 0;
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
  [[nodiscard]] const char* name() const override { return "marlune"; }
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
  [[nodiscard]] const char* name() const override { return "cpp-httplib"; }
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
  [[nodiscard]] const char* name() const override { return "libmicrohttpd"; }
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

void measure(const Server& server, const std::string& target, int clients, Figures& figures) {
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
            std::chrono::duration<double, std::nano>(steady_clock::now() - start).count());
      }
      return times;
    }));
  }
  std::vector<double> all;
  for (auto& one : running) {
    const auto times = one.get();
    all.insert(all.end(), times.begin(), times.end());
  }
  const std::chrono::duration<double, std::nano> took = steady_clock::now() - from;
  std::ranges::sort(all);
  figures.nsPerRequest.push_back(took.count() / static_cast<double>(all.size()));
  figures.p99Ns.push_back(all[all.size() * 99 / 100]);
}

void print(const std::string& what, const char* who, std::vector<double> rounds) {
  std::ranges::sort(rounds);
  std::printf("%s\t%s\t%.0f\n", what.c_str(), who, rounds[rounds.size() / 2]);
}

void compare(const std::vector<std::unique_ptr<Server>>& servers, const std::string& what,
             const std::string& target, int clients, int rounds) {
  std::vector<Figures> figures(servers.size());
  for (int round = 0; round < rounds; ++round) {
    for (size_t i = 0; i < servers.size(); ++i) measure(*servers[i], target, clients, figures[i]);
  }
  for (size_t i = 0; i < servers.size(); ++i) {
    print(what, servers[i]->name(), figures[i].nsPerRequest);
    print(what + ", 99th percentile", servers[i]->name(), figures[i].p99Ns);
  }
}

/// CPU time of this process while `work` runs on a thread for a second and no client connects.
template <class Work>
double idleNs(std::atomic<bool>& running, Work work) {
  const auto cpuNs = [] { return static_cast<double>(std::clock()) * 1e9 / CLOCKS_PER_SEC; };
  running = true;
  std::thread thread(work);
  const double before = cpuNs();
  std::this_thread::sleep_for(std::chrono::seconds(1));
  const double used = cpuNs() - before;
  running = false;
  thread.join();
  return used;
}

/// Compared with a thread that only sleeps for the same intervals.
void compareIdle(int rounds) {
  SocketsPosix sockets;
  RequestQueuePosix queue;
  ClockPosix clock;
  RemoteServer server;
  server.session = sockets.start();
  server.listeners.push_back(server.session->listen(kLoopback, 0, 1));
  std::vector<double> ours;
  std::vector<double> sleeper;
  for (int round = 0; round < rounds; ++round) {
    ours.push_back(idleNs(server.running, [&] { runListener(server, {clock, queue}); }));
    sleeper.push_back(idleNs(server.running, [&] {
      while (server.running) std::this_thread::sleep_for(milliseconds(kWaitForConnectionMs));
    }));
  }
  print("idle service, a second", "marlune", ours);
  print("idle service, a second", "sleeping thread", sleeper);
}

}  // namespace
}  // namespace mrl

int main(int count, char** arguments) {
  const int rounds = count > 1 ? std::atoi(arguments[1]) : 3;
  mrl::compareIdle(rounds);
  std::ifstream file("src/remote/page.html", std::ios::binary);
  const std::string page(std::istreambuf_iterator<char>(file), {});
  auto ours = std::make_unique<mrl::OurServer>(page);
  const std::string state = ours->stateBytes();
  std::vector<std::unique_ptr<mrl::Server>> servers;
  servers.push_back(std::move(ours));
  servers.push_back(std::make_unique<mrl::HttplibServer>(page, state));
  servers.push_back(std::make_unique<mrl::MicrohttpdServer>(page, state));
  for (const int clients : {1, 8}) {
    const std::string to =
        " to " + std::to_string(clients) + (clients > 1 ? " clients" : " client");
    mrl::compare(servers, "page" + to, "/", clients, rounds);
    mrl::compare(servers, "state" + to, "/api/state", clients, rounds);
  }
}
