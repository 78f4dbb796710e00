// Any bytes as a request: only one that names this service passes the rules, what is handed over is
// within its limits, and there is never more than one answer, which is complete.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "base/clock_fake.h"
#include "http/http_request.h"
#include "http/http_rules.h"
#include "http/ipv4.h"
#include "http/listener.h"
#include "http/request_queue_fake.h"
#include "http/sockets_fake.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

void checkHandedOver(const mrl::RemoteRequest& request, const std::string& raw) {
  require(raw.find("localhost") != std::string::npos || raw.find("127.0.0.1") != std::string::npos);
  require(request.argument.size() <= 16);
  require(std::ranges::all_of(request.argument, [](char byte) {
    return std::string("0123456789abcdefABCDEF").find(byte) != std::string::npos;
  }));
  require(request.body.size() <= mrl::kBodyLimit);
  require(request.body.empty() || request.command == "controls-save");
  require(request.command.find(' ') == std::string::npos);
}

}  // namespace

/// The first byte sets how many bytes each receive returns; the rest is the request.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const size_t piece = static_cast<size_t>(data[0]) * 8 + 1;
  const std::string raw(reinterpret_cast<const char*>(data + 1), size - 1);

  mrl::ClockFake clock;
  mrl::RequestQueueFake requests;
  requests.onPost = [&raw](mrl::RemoteRequest& request) {
    checkHandedOver(request, raw);
    request.response = "{}";
    request.done->set();
  };
  mrl::RemoteServer server;
  server.running = true;
  server.port = 8080;
  server.page = "<p>";
  mrl::PeerFake peer;
  for (size_t at = 0; at < raw.size(); at += piece) peer.chunks.push_back(raw.substr(at, piece));
  mrl::ConnectionFake connection(peer);
  mrl::serveConnection(server, {clock, requests}, connection);
  server.running = false;

  require(peer.received.starts_with("HTTP/1.1 "));
  require(peer.received.find("\r\nConnection: close\r\n\r\n") != std::string::npos);
  require(peer.received.find("HTTP/1.1 ", 1) == std::string::npos);
  require(requests.queued.size() <= 1);
  return 0;
}
