#include "remote/http_request.h"

#include <gtest/gtest.h>

namespace mrl {
namespace {

constexpr std::string_view kHead = "GET /api/state HTTP/1.1\r\nHost: me\r\n\r\n";

TEST(HttpRequestTest, TheRequestLineIsWhatStandsBeforeTheFirstTwoBlanks) {
  EXPECT_EQ(requestLineOf(kHead), (RequestLine{"GET", "/api/state"}));
}

}  // namespace
}  // namespace mrl
