// Reads a request's bytes as they came. Nothing is decoded, folded or normalised.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace mrl {

constexpr size_t kHeadLimit = 8192;  // no more is read once so much is there
constexpr uint64_t kBodyLimit = 8192;
constexpr std::string_view kHeadEnd = "\r\n\r\n";

/// The head has ended, or is as long as we ever read.
bool isHeadComplete(std::string_view raw);

struct RequestLine {
  std::string_view method;
  std::string_view target;

  bool operator==(const RequestLine&) const = default;
};

/// Nothing when the line is malformed or the head never ended.
std::optional<RequestLine> requestLineOf(std::string_view raw);

/// The value of the first header of that name, without the blanks and tabs around it; empty when
/// there is none.
std::string_view findHeader(std::string_view raw, std::string_view lowerCaseName);

/// The length of a form's body: plain digits, 1 to kBodyLimit. Nothing for anything else.
std::optional<size_t> bodyLengthOf(std::string_view raw);

/// Where the body starts. REQUIRES: the head has ended.
size_t bodyStart(std::string_view raw);

}  // namespace mrl
