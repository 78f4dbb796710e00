#include "http/remote_server.h"

#include <array>
#include <string_view>

#include "base/text.h"
#include "http/ipv4.h"
#include "http/listener.h"

namespace mrl {
namespace {

constexpr char16_t kNoNetwork[] = u"Winsock 初始化失败";
constexpr char16_t kNoPairingKey[] = u"配对密钥生成失败";
constexpr char16_t kNoPageText[] = u"遥控页面资源缺失";
constexpr char16_t kPortFailed[] = u"遥控端口 ";
constexpr char16_t kPortAdvice[] = u" 无法监听，请检查网络或更换端口。";
constexpr size_t kKeyBytes = 16;
constexpr int kListenBacklog = 8;

bool makePairingKey(ServiceHost& host, std::string& key) {
  std::array<uint8_t, kKeyBytes> bytes{};
  if (!host.fillRandom(bytes)) return false;
  constexpr std::string_view kDigits = "0123456789abcdef";
  key.clear();
  for (const uint8_t byte : bytes) {
    key += kDigits[byte >> 4U];
    key += kDigits[byte & 0xFU];
  }
  return true;
}

bool listenOnAll(RemoteServer& server) {
  std::vector<uint32_t> places = server.addresses;
  places.push_back(kLoopback);
  for (const uint32_t place : places) {
    std::unique_ptr<ListeningSocket> listener =
        server.session->listen(place, server.port, kListenBacklog);
    if (!listener) return false;
    server.listeners.push_back(std::move(listener));
  }
  return true;
}

void closeSockets(RemoteServer& server) {
  server.listeners.clear();
  server.addresses.clear();
  server.session.reset();
}

/// Everything up to the listening sockets. On failure the caller closes what was opened.
bool openServer(RemoteServer& server, const ServerStart& start, std::u16string& error) {
  server.session = start.sockets.start();
  if (!server.session) {
    error = kNoNetwork;
    return false;
  }
  if (!makePairingKey(start.host, server.pairingKey)) {
    error = kNoPairingKey;
    return false;
  }
  if (!start.host.readPage(server.page)) {
    error = kNoPageText;
    return false;
  }
  if (!listenOnAll(server)) {
    error = kPortFailed + decimal(server.port) + kPortAdvice;
    return false;
  }
  return true;
}

}  // namespace

RemoteServer::~RemoteServer() { stopServer(*this); }

bool startServer(RemoteServer& server, const ServerStart& start, std::u16string& error) {
  if (server.running) return true;
  if (server.thread.joinable()) stopServer(server);
  server.port = start.port;
  server.addresses = start.addresses;
  if (!openServer(server, start, error)) {
    closeSockets(server);
    return false;
  }
  server.targetWindow = start.target;
  ++server.generation;
  server.running = true;
  server.thread =
      std::thread(runListener, std::ref(server), HandOverInterfaces{start.clock, start.requests});
  return true;
}

void stopServer(RemoteServer& server) {
  server.running = false;
  ++server.generation;
  if (server.thread.joinable()) server.thread.join();
  closeSockets(server);
}

}  // namespace mrl
