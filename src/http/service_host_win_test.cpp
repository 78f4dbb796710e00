#include "http/service_host_win.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <bcrypt.h>

#include <array>

#include "base/replaced_import_win.h"

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

struct RandomOrder {
  BCRYPT_ALG_HANDLE algorithm = nullptr;
  ULONG size = 0;
  ULONG flags = 0;
};
RandomOrder order;

NTSTATUS WINAPI refuseRandom(BCRYPT_ALG_HANDLE algorithm, UCHAR* /*bytes*/, ULONG size,
                             ULONG flags) {
  order = {algorithm, size, flags};
  return static_cast<NTSTATUS>(0xC0000001);
}

TEST(ServiceHostWinTest, ARefusalOfTheSystemsOwnSourceIsAFailure) {
  const ReplacedImport<decltype(refuseRandom)> system{"BCryptGenRandom", refuseRandom};
  ServiceHostWin host;
  std::array<uint8_t, 16> bytes{};
  EXPECT_FALSE(host.fillRandom(bytes));
  EXPECT_EQ(order.algorithm, nullptr);
  EXPECT_EQ(order.size, 16U);
  EXPECT_EQ(order.flags, ULONG{BCRYPT_USE_SYSTEM_PREFERRED_RNG});
}

TEST(ServiceHostWinTest, AProgramWithoutThePageSaysSoAndLeavesTheTextAlone) {
  ServiceHostWin host;
  std::string page = "as it was";
  EXPECT_FALSE(host.readPage(page));  // the test program has no resources
  EXPECT_EQ(page, "as it was");
}

}  // namespace
}  // namespace mrl
