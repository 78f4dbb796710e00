#include "http/http_request.h"

#include <gtest/gtest.h>

#include <string>

namespace mrl {
namespace {

std::string withHeader(const std::string& header) {
  return "POST /api/controls HTTP/1.1\r\n" + header + "\r\n\r\n";
}

std::optional<size_t> lengthFrom(const std::string& value) {
  return bodyLengthOf(withHeader("Content-Length: " + value));
}

TEST(HttpRequestTest, TheRequestLineIsWhatStandsBeforeTheFirstTwoBlanks) {
  EXPECT_EQ(requestLineOf("GET /api/state HTTP/1.1\r\nHost: me\r\n\r\n"),
            (RequestLine{"GET", "/api/state"}));
}

TEST(HttpRequestTest, TheVersionIsNotRead) {
  EXPECT_EQ(requestLineOf("GET / \r\n\r\n"), (RequestLine{"GET", "/"}));
  EXPECT_EQ(requestLineOf("GET / GARBAGE and more\r\n\r\n"), (RequestLine{"GET", "/"}));
}

TEST(HttpRequestTest, NothingOfTheRequestLineIsDecoded) {
  EXPECT_EQ(requestLineOf("get /%61pi/../x HTTP/1.1\r\n\r\n"), (RequestLine{"get", "/%61pi/../x"}));
  EXPECT_EQ(requestLineOf("GET  HTTP/1.1\r\n\r\n"), (RequestLine{"GET", ""}));
}

TEST(HttpRequestTest, ALineWithoutTwoBlanksBeforeItsEndIsMalformed) {
  EXPECT_FALSE(requestLineOf("GET\r\n\r\n"));
  EXPECT_FALSE(requestLineOf("GET /\r\n\r\n"));
  EXPECT_FALSE(requestLineOf("GET /\r\nHost: me\r\n\r\n"));
  EXPECT_FALSE(requestLineOf("\r\nGET / HTTP/1.1\r\n\r\n"));
  EXPECT_FALSE(requestLineOf("\r\n\r\n"));
}

TEST(HttpRequestTest, AHeadThatNeverEndsIsMalformed) {
  EXPECT_FALSE(requestLineOf(""));
  EXPECT_FALSE(requestLineOf("\r"));
  EXPECT_FALSE(requestLineOf("GET / HTTP/1.1\r\nHost: me\r\n"));
  EXPECT_FALSE(requestLineOf("GET / HTTP/1.1\n\nHost: me\n\n"));
}

TEST(HttpRequestTest, AHeadIsCompleteAtItsEndOrAt8192Bytes) {
  EXPECT_FALSE(isHeadComplete(""));
  EXPECT_FALSE(isHeadComplete("\r\n\r"));
  EXPECT_TRUE(isHeadComplete("\r\n\r\n"));
  EXPECT_FALSE(isHeadComplete(std::string(8191, 'x')));
  EXPECT_TRUE(isHeadComplete(std::string(8192, 'x')));
}

TEST(HttpRequestTest, AHeaderIsFoundByItsNameInAnyCase) {
  for (const char* name : {"HOST", "host", "Host", "hOsT"}) {
    EXPECT_EQ(findHeader(withHeader(std::string(name) + ": me"), "host"), "me") << name;
  }
}

TEST(HttpRequestTest, AHeadersNameIsComparedWhole) {
  EXPECT_EQ(findHeader(withHeader("Hostess: me"), "host"), "");
  EXPECT_EQ(findHeader(withHeader("Hos: me"), "host"), "");
  EXPECT_EQ(findHeader(withHeader(": me"), "host"), "");
}

TEST(HttpRequestTest, ABlankAroundANameMakesItAnother) {
  EXPECT_EQ(findHeader(withHeader("Host : me"), "host"), "");
  EXPECT_EQ(findHeader(withHeader(" Host: me"), "host"), "");
}

TEST(HttpRequestTest, BlanksAndTabsAroundAValueGo) {
  EXPECT_EQ(findHeader(withHeader("Host:me"), "host"), "me");
  EXPECT_EQ(findHeader(withHeader("Host: \t me you\t "), "host"), "me you");
  EXPECT_EQ(findHeader(withHeader("Host: \t "), "host"), "");
  EXPECT_EQ(findHeader(withHeader("Host:"), "host"), "");
  EXPECT_EQ(findHeader(withHeader("Host: \vme"), "host"), "\vme");
}

TEST(HttpRequestTest, AValueMayHoldAColon) {
  EXPECT_EQ(findHeader(withHeader("Host: me:80"), "host"), "me:80");
}

TEST(HttpRequestTest, TheFirstOfRepeatedHeadersWins) {
  EXPECT_EQ(findHeader(withHeader("Host: me\r\nHost: you"), "host"), "me");
  EXPECT_EQ(findHeader(withHeader("Host:\r\nHost: you"), "host"), "");
}

TEST(HttpRequestTest, ALineWithoutAColonIsSkipped) {
  EXPECT_EQ(findHeader(withHeader("nonsense\r\nHost: me"), "host"), "me");
}

TEST(HttpRequestTest, HeadersEndAtTheFirstEmptyLine) {
  EXPECT_EQ(findHeader(withHeader("A: b\r\n\r\nHost: me"), "host"), "");
  EXPECT_EQ(findHeader("GET / HTTP/1.1\r\n\r\nHost: me\r\n\r\n", "host"), "");
}

TEST(HttpRequestTest, TheRequestLineIsNoHeader) {
  EXPECT_EQ(findHeader("Host: me\r\n\r\n", "host"), "");
}

TEST(HttpRequestTest, ALineThatNeverEndsIsNoHeader) {
  EXPECT_EQ(findHeader("GET / HTTP/1.1\r\nHost: me", "host"), "");
  EXPECT_EQ(findHeader("", "host"), "");
  EXPECT_EQ(findHeader("x", "host"), "");
}

TEST(HttpRequestTest, ABodyHas1To8192Bytes) {
  EXPECT_FALSE(lengthFrom("0"));
  EXPECT_EQ(lengthFrom("1"), 1U);
  EXPECT_EQ(lengthFrom("8192"), 8192U);
  EXPECT_FALSE(lengthFrom("8193"));
}

TEST(HttpRequestTest, ABodysLengthIsDigitsAlone) {
  for (const char* value :
       {"-2", "+10", "1e3", "", " ", "0x10", "1 2", "10,", "1.0", "ten",
        "123456789012345678901234567890", "18446744073709551616", "18446744073709551626", "10\v"}) {
    EXPECT_FALSE(lengthFrom(value)) << value;
  }
}

TEST(HttpRequestTest, ABodysLengthMayHaveBlanksAroundItAndZerosBefore) {
  EXPECT_EQ(lengthFrom("10 "), 10U);
  EXPECT_EQ(lengthFrom("\t10"), 10U);
  EXPECT_EQ(lengthFrom("00000000000000000000000000000010"), 10U);
}

TEST(HttpRequestTest, WithoutALengthThereIsNoBody) {
  EXPECT_FALSE(bodyLengthOf(withHeader("Transfer-Encoding: chunked")));
}

TEST(HttpRequestTest, OfTwoLengthsTheFirstCounts) {
  EXPECT_EQ(bodyLengthOf(withHeader("Content-Length: 5\r\nContent-Length: 9")), 5U);
  EXPECT_FALSE(bodyLengthOf(withHeader("Content-Length: -1\r\nContent-Length: 9")));
}

TEST(HttpRequestTest, TheBodyStartsBehindTheFirstEmptyLine) {
  EXPECT_EQ(bodyStart("A\r\n\r\nB\r\n\r\n"), 5U);
}

}  // namespace
}  // namespace mrl
