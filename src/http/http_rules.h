// Decides from a request's bytes alone what it may do.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "http/http_request.h"

namespace mrl {

/// The service's only protection. The Host header must name the address on which the request
/// arrived, and if a browser page sent it (Origin), that page must come from there too. This keeps
/// out pages of other sites and foreign names that resolve to this computer. `localAddress` is in
/// network order; std::nullopt if unknown: then only a request that names no host is accepted.
bool namesThisService(std::string_view raw, std::optional<uint32_t> localAddress, int32_t port);

enum class Route {
  Page,
  NotFound,
  WrongMethod,
  BadArguments,
  Command,  // hand over `command` and `argument`
  Form      // read the body first, then hand over `command`
};

struct RouteDecision {
  Route route = Route::NotFound;
  std::string command;
  std::string argument;

  bool operator==(const RouteDecision&) const = default;
};

RouteDecision routeOf(const RequestLine& line);

}  // namespace mrl
