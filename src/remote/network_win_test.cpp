#include "remote/network_win.h"

#include <gtest/gtest.h>
#include <objbase.h>

#include <algorithm>

#include "remote/ipv4.h"

namespace mrl {
namespace {

class NetworkWinTest : public ::testing::Test {
 protected:
  void SetUp() override { (void)CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  void TearDown() override { CoUninitialize(); }

  NetworkWin network;
};

TEST_F(NetworkWinTest, TheSystemListsItsConnections) {
  std::vector<uint32_t> indices;
  EXPECT_EQ(network.connectedInterfaces(indices), ConnectionsResult::Listed);
  EXPECT_EQ(std::count(indices.begin(), indices.end(), 0u), 0);
}

TEST_F(NetworkWinTest, TheSystemListsItsAdaptersLoopbackAmongThem) {
  std::vector<NetworkAdapter> adapters;
  ASSERT_TRUE(network.listAdapters(adapters));
  const auto loopback = std::find_if(adapters.begin(), adapters.end(),
                                     [](const auto& adapter) { return adapter.isLoopback; });
  ASSERT_NE(loopback, adapters.end());
  EXPECT_TRUE(loopback->isUp);
  EXPECT_NE(loopback->index, 0u);
  EXPECT_NE(std::find(loopback->addresses.begin(), loopback->addresses.end(), kLoopback),
            loopback->addresses.end());
}

TEST_F(NetworkWinTest, EveryConnectedInterfaceIsAnAdapter) {
  std::vector<uint32_t> indices;
  std::vector<NetworkAdapter> adapters;
  ASSERT_EQ(network.connectedInterfaces(indices), ConnectionsResult::Listed);
  ASSERT_TRUE(network.listAdapters(adapters));
  for (const uint32_t index : indices) {
    EXPECT_TRUE(std::any_of(adapters.begin(), adapters.end(),
                            [&](const auto& adapter) { return adapter.index == index; }));
  }
}

TEST_F(NetworkWinTest, WithoutComThereIsNoNetworkService) {
  CoUninitialize();
  std::vector<uint32_t> indices;
  EXPECT_EQ(network.connectedInterfaces(indices), ConnectionsResult::NoNetworkService);
  (void)CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);  // for the end of the test
}

}  // namespace
}  // namespace mrl
