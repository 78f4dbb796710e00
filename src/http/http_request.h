// Parses a request's raw bytes. Nothing is decoded, unfolded or normalised.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace mrl {

constexpr size_t kHeadLimit = 8192;  // no further receive once this much has arrived
constexpr uint64_t kBodyLimit = 8192;
constexpr std::string_view kHeadEnd = "\r\n\r\n";

/// True if the head has ended or has reached kHeadLimit.
bool isHeadComplete(std::string_view raw);

struct RequestLine {
  std::string_view method;
  std::string_view target;

  bool operator==(const RequestLine&) const = default;
};

/// std::nullopt if the line is malformed or the head is not terminated.
std::optional<RequestLine> requestLineOf(std::string_view raw);

/// The value of the first header of that name, without surrounding spaces and tabs; empty if there
/// is none.
std::string_view findHeader(std::string_view raw, std::string_view lowerCaseName);

/// The length of a form's body: plain digits, 1 to kBodyLimit. std::nullopt for anything else.
std::optional<size_t> bodyLengthOf(std::string_view raw);

/// Where the body starts. REQUIRES: the head has ended.
size_t bodyStart(std::string_view raw);

}  // namespace mrl
