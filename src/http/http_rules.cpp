#include "http/http_rules.h"

#include <algorithm>

#include "http/ipv4.h"

namespace mrl {
namespace {

constexpr std::string_view kApi = "/api/";
constexpr std::string_view kSeconds = "seconds=";
constexpr std::string_view kId = "id=";
constexpr size_t kMostSecondsDigits = 6;
constexpr size_t kIdDigits = 16;

bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

bool isHexDigit(char byte) {
  return isDigit(byte) || (byte >= 'a' && byte <= 'f') || (byte >= 'A' && byte <= 'F');
}

bool isNameOrNameWithPort(std::string_view host, const std::string& name, int32_t port) {
  return host == name || host == name + ":" + std::to_string(port);
}

bool isGoodHost(std::string_view host, std::optional<uint32_t> localAddress, int32_t port) {
  const std::string local = localAddress ? dottedText(*localAddress) : std::string();
  if (isNameOrNameWithPort(host, local, port)) return true;
  return localAddress && isLoopback(*localAddress) && isNameOrNameWithPort(host, "localhost", port);
}

/// The value of the query's only parameter; std::nullopt if `command` doesn't accept that query.
std::optional<std::string_view> argumentOf(std::string_view command, std::string_view query) {
  if (command == "duration" && query.starts_with(kSeconds)) {
    const std::string_view digits = query.substr(kSeconds.size());
    const bool good = !digits.empty() && digits.size() <= kMostSecondsDigits &&
                      std::ranges::all_of(digits, isDigit);
    if (good) return digits;
  }
  if (query.starts_with(kId)) {
    const std::string_view digits = query.substr(kId.size());
    if (digits.size() == kIdDigits && std::ranges::all_of(digits, isHexDigit)) return digits;
  }
  return std::nullopt;
}

}  // namespace

bool namesThisService(std::string_view raw, std::optional<uint32_t> localAddress, int32_t port) {
  const std::string_view host = findHeader(raw, "host");
  const std::string_view origin = findHeader(raw, "origin");
  if (!isGoodHost(host, localAddress, port)) return false;
  return origin.empty() || origin == "http://" + std::string(host);
}

RouteDecision routeOf(const RequestLine& line) {
  if (line.target == "/" && line.method == "GET") return {Route::Page};
  if (!line.target.starts_with(kApi)) return {Route::NotFound};

  const size_t mark = line.target.find('?');
  const std::string_view command = line.target.substr(0, mark).substr(kApi.size());
  if (command == "controls" && line.method == "POST") return {Route::Form, "controls-save"};
  const bool reads = command == "state" || command == "controls";
  if (line.method != (reads ? "GET" : "POST")) return {Route::WrongMethod};

  if (mark == std::string_view::npos) return {Route::Command, std::string(command)};
  const auto argument = argumentOf(command, line.target.substr(mark + 1));
  if (!argument) return {Route::BadArguments};
  return {Route::Command, std::string(command), std::string(*argument)};
}

}  // namespace mrl
