#include "remote/service_host_win.h"

#include <gtest/gtest.h>

#include <array>

namespace mrl {
namespace {

TEST(ServiceHostWinTest, EachFillBringsOtherBytes) {
  ServiceHostWin host;
  std::array<uint8_t, 16> first{};
  std::array<uint8_t, 16> second{};
  ASSERT_TRUE(host.fillRandom(first));
  ASSERT_TRUE(host.fillRandom(second));
  EXPECT_NE(first, second);
  EXPECT_NE(first, (std::array<uint8_t, 16>{}));
}

TEST(ServiceHostWinTest, AProgramWithoutThePageSaysSoAndLeavesTheTextAlone) {
  ServiceHostWin host;
  std::string page = "as it was";
  EXPECT_FALSE(host.readPage(page));  // the tests' own image carries no resources
  EXPECT_EQ(page, "as it was");
}

}  // namespace
}  // namespace mrl
