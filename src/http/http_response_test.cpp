#include "http/http_response.h"

#include <gtest/gtest.h>

namespace mrl {
namespace {

constexpr char kEveryHead[] =
    "\r\nCache-Control: no-store\r\nX-Content-Type-Options: nosniff\r\n"
    "Content-Security-Policy: default-src 'self'; script-src 'unsafe-inline'; style-src "
    "'unsafe-inline'; connect-src 'self'; frame-ancestors 'none'\r\n"
    "Referrer-Policy: no-referrer\r\nConnection: close\r\n\r\n";

TEST(HttpResponseTest, TheHeadIsTheSameByteForByteWhateverTheAnswer) {
  EXPECT_EQ(responseBytes({200, "<p>", kHtml}),
            std::string("HTTP/1.1 200 Response\r\nContent-Type: text/html; charset=utf-8\r\n"
                        "Content-Length: 3") +
                kEveryHead + "<p>");
  EXPECT_EQ(responseBytes({409, R"({"error":"x"})", kJson}),
            std::string("HTTP/1.1 409 Response\r\nContent-Type: application/json; charset=utf-8"
                        "\r\nContent-Length: 13") +
                kEveryHead + R"({"error":"x"})");
  EXPECT_EQ(responseBytes({405, "", kPlainText}),
            std::string("HTTP/1.1 405 Response\r\nContent-Type: text/plain; charset=utf-8\r\n"
                        "Content-Length: 0") +
                kEveryHead);
}

TEST(HttpResponseTest, WithoutABetterAnswerTheRequestWasBad) {
  const std::string bytes = responseBytes({});
  EXPECT_TRUE(bytes.starts_with("HTTP/1.1 400 Response\r\nContent-Type: text/plain"));
  EXPECT_TRUE(bytes.ends_with("\r\n\r\nBad request"));
}

TEST(HttpResponseTest, TheLengthCountsBytes) {
  EXPECT_NE(responseBytes({200, "时", kJson}).find("Content-Length: 3\r\n"), std::string::npos);
}

}  // namespace
}  // namespace mrl
