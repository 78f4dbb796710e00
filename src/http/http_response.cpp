#include "http/http_response.h"

namespace mrl {
namespace {

// The page's script and style are inline, and it connects only to us; no site may frame it.
constexpr std::string_view kFixedHead =
    "\r\nCache-Control: no-store"
    "\r\nX-Content-Type-Options: nosniff"
    "\r\nContent-Security-Policy: default-src 'self'; script-src 'unsafe-inline'; "
    "style-src 'unsafe-inline'; connect-src 'self'; frame-ancestors 'none'"
    "\r\nReferrer-Policy: no-referrer"
    "\r\nConnection: close\r\n\r\n";

constexpr size_t kHeadRoom = 512;  // more than the headers need

}  // namespace

std::string responseBytes(const Answer& answer) {
  std::string bytes = "HTTP/1.1 " + std::to_string(answer.status) + " Response\r\nContent-Type: ";
  bytes.reserve(bytes.size() + kHeadRoom + answer.body.size());
  bytes.append(answer.type).append("\r\nContent-Length: ");
  bytes.append(std::to_string(answer.body.size())).append(kFixedHead).append(answer.body);
  return bytes;
}

}  // namespace mrl
