// Builds the bytes of an answer.
#pragma once

#include <string>
#include <string_view>

namespace mrl {

constexpr std::string_view kPlainText = "text/plain; charset=utf-8";
constexpr std::string_view kHtml = "text/html; charset=utf-8";
constexpr std::string_view kJson = "application/json; charset=utf-8";

struct Answer {
  int status = 400;
  std::string body = "Bad request";
  std::string_view type = kPlainText;

  bool operator==(const Answer&) const = default;
};

/// Head and body. All answers, errors included, have the same headers.
std::string responseBytes(const Answer& answer);

}  // namespace mrl
