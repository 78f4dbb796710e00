#include "http/ipv4.h"

#include <gtest/gtest.h>

namespace mrl {
namespace {

TEST(Ipv4Test, AnAddressIsWrittenWithDotsAndNoZerosBefore) {
  EXPECT_EQ(dottedText(ipv4(192, 168, 1, 5)), "192.168.1.5");
  EXPECT_EQ(dottedText(ipv4(255, 255, 255, 255)), "255.255.255.255");
  EXPECT_EQ(dottedText(0), "0.0.0.0");
}

TEST(Ipv4Test, TheFirstOctetLiesFirstInMemory) {
  const uint32_t address = ipv4(1, 2, 3, 4);
  EXPECT_EQ(*reinterpret_cast<const uint8_t*>(&address), 1);
}

TEST(Ipv4Test, LoopbackIsTheNetwork127) {
  EXPECT_TRUE(isLoopback(kLoopback));
  EXPECT_TRUE(isLoopback(ipv4(127, 255, 0, 9)));
  EXPECT_FALSE(isLoopback(ipv4(126, 0, 0, 127)));
}

}  // namespace
}  // namespace mrl
