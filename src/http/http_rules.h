// What a request may do, decided on its bytes alone.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "http/http_request.h"

namespace mrl {

/// The service's only protection. The request must name the very address on which it arrived, and
/// if a page of a browser sent it, that page must come from there too. So neither a page of another
/// site nor a name that was pointed at this computer gets through. `localAddress` is in network
/// order; nothing when the system would not tell.
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
