#include "http/http_request.h"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "base/text.h"

namespace mrl {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

char lower(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

bool isNamed(std::string_view name, std::string_view lowerCaseName) {
  return std::ranges::equal(name, lowerCaseName, {}, lower);
}

}  // namespace

bool isHeadComplete(std::string_view raw) {
  return raw.size() >= kHeadLimit || raw.find(kHeadEnd) != std::string_view::npos;
}

std::optional<RequestLine> requestLineOf(std::string_view raw) {
  if (raw.find(kHeadEnd) == std::string_view::npos) return std::nullopt;
  const size_t first = raw.find(' ');
  if (first == std::string_view::npos) return std::nullopt;
  const size_t second = raw.find(' ', first + 1);
  if (second == std::string_view::npos || second > raw.find(kLineEnd)) return std::nullopt;
  return RequestLine{raw.substr(0, first), raw.substr(first + 1, second - first - 1)};
}

std::string_view findHeader(std::string_view raw, std::string_view lowerCaseName) {
  size_t end = raw.find(kLineEnd);
  while (end != std::string_view::npos) {
    const size_t start = end + kLineEnd.size();
    end = raw.find(kLineEnd, start);
    if (end == std::string_view::npos || end == start) break;
    const std::string_view line = raw.substr(start, end - start);
    const size_t colon = line.find(':');
    if (colon == std::string_view::npos || !isNamed(line.substr(0, colon), lowerCaseName)) continue;
    return trimmed(line.substr(colon + 1));
  }
  return {};
}

std::optional<size_t> bodyLengthOf(std::string_view raw) {
  const std::string_view text = findHeader(raw, "content-length");
  uint64_t length = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), length);
  if (failure != std::errc() || end != text.data() + text.size()) return std::nullopt;
  if (length < 1 || length > kBodyLimit) return std::nullopt;
  return static_cast<size_t>(length);
}

size_t bodyStart(std::string_view raw) { return raw.find(kHeadEnd) + kHeadEnd.size(); }

}  // namespace mrl
