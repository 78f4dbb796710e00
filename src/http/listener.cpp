#include "http/listener.h"

#include <array>
#include <string>
#include <utility>

#include "http/http_request.h"
#include "http/http_response.h"
#include "http/http_rules.h"

namespace mrl {
namespace {

constexpr size_t kReceiveBytes = 2048;
constexpr uint32_t kSocketCallLimitMs = 1500;

const Answer kBadRequest{400, "Bad request", kPlainText};
const Answer kWrongAddress{403, "Invalid request origin", kPlainText};
const Answer kNotFound{404, "Not found", kPlainText};
const Answer kWrongMethod{405, "Method not allowed", kPlainText};

/// Receives the bytes of one request, within one time limit for head and body.
class RequestReader {
 public:
  RequestReader(const RemoteServer& ofServer, const Clock& ofTime, Connection& from)
      : server(ofServer), clock(ofTime), connection(from), startMs(ofTime.nowMs()) {}

  void readHead() {
    while (hasTime() && !isHeadComplete(bytes) && receive()) {
    }
  }
  /// False if the body is incomplete.
  bool readUntil(size_t size) {
    while (hasTime() && bytes.size() < size && receive()) {
    }
    return bytes.size() >= size;
  }
  [[nodiscard]] const std::string& raw() const { return bytes; }

 private:
  [[nodiscard]] bool hasTime() const {
    return server.running && clock.nowMs() - startMs < kReadLimitMs;
  }
  bool receive() {
    std::array<char, kReceiveBytes> buffer;  // NOLINT(*-member-init): recv fills what is used
    const int count = connection.receive(buffer);
    if (count < 1) return false;
    bytes.append(buffer.data(), static_cast<size_t>(count));
    return true;
  }

  const RemoteServer& server;
  const Clock& clock;
  Connection& connection;
  uint64_t startMs;
  std::string bytes;
};

Answer answerCommand(const RemoteServer& server, const HandOverInterfaces& interfaces,
                     RouteDecision decision, RequestReader& reader) {
  const std::shared_ptr<RemoteRequest> request = makeRequest(server, interfaces);
  request->command = std::move(decision.command);
  request->argument = std::move(decision.argument);
  if (decision.route == Route::Form) {
    const auto length = bodyLengthOf(reader.raw());
    const size_t start = bodyStart(reader.raw());
    if (!length || !reader.readUntil(start + *length)) return kBadRequest;
    request->body = reader.raw().substr(start, *length);
  }
  return handOver(server, interfaces, request);
}

Answer answerTo(const RemoteServer& server, const HandOverInterfaces& interfaces,
                Connection& connection) {
  RequestReader reader(server, interfaces.clock, connection);
  reader.readHead();
  const auto line = requestLineOf(reader.raw());
  if (!line) return kBadRequest;
  if (!namesThisService(reader.raw(), connection.localAddress(), server.port)) return kWrongAddress;

  RouteDecision decision = routeOf(*line);
  switch (decision.route) {
    case Route::Page: return {200, server.page, kHtml};
    case Route::NotFound: return kNotFound;
    case Route::WrongMethod: return kWrongMethod;
    case Route::BadArguments: return kBadRequest;
    case Route::Command:
    case Route::Form: return answerCommand(server, interfaces, std::move(decision), reader);
  }
  return kBadRequest;
}

}  // namespace

void serveConnection(const RemoteServer& server, const HandOverInterfaces& interfaces,
                     Connection& connection) {
  const std::string response = responseBytes(answerTo(server, interfaces, connection));
  std::string_view rest = response;
  while (!rest.empty()) {
    const int count = connection.send(rest);
    if (count < 1) return;
    rest.remove_prefix(static_cast<size_t>(count));
  }
}

void runListener(const RemoteServer& server, HandOverInterfaces interfaces) {
  while (server.running) {
    ListeningSocket* const listener = server.session->wait(server.listeners, kWaitForConnectionMs);
    if (listener == nullptr) continue;
    const auto connection = server.session->accept(*listener, kSocketCallLimitMs);
    if (connection) serveConnection(server, interfaces, *connection);
  }
}

}  // namespace mrl
