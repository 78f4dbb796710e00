#include "remote/addresses.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "http/ipv4.h"
#include "remote/network_fake.h"

namespace mrl {
namespace {

constexpr uint32_t kTunnel = ipv4(10, 8, 0, 2);

class AddressesTest : public ::testing::Test {
 protected:
  void expectAddresses(const std::vector<uint32_t>& expected) {
    std::vector<uint32_t> found{kTunnel};  // must be overwritten
    std::u16string error;
    EXPECT_TRUE(discoverAddresses(network, found, error)) << utf8From(error);
    EXPECT_EQ(found, expected);
    EXPECT_EQ(error, u"");
  }
  void expectRefused(const std::u16string& reason) {
    std::vector<uint32_t> found{kTunnel};
    std::u16string error;
    EXPECT_FALSE(discoverAddresses(network, found, error));
    EXPECT_EQ(utf8From(error), utf8From(reason));
    EXPECT_TRUE(found.empty());
  }
  void addMany(int count) {
    std::vector<uint32_t> addresses;
    for (int number = 0; number < count; ++number) {
      addresses.push_back(ipv4(10, 1, 1, static_cast<uint8_t>(number + 1)));
    }
    network.add(1, addresses);
  }

  NetworkFake network;
};

TEST_F(AddressesTest, WithoutTheNetworkServiceNothingIsFound) {
  network.result = ConnectionsResult::NoNetworkService;
  expectRefused(u"无法读取 Windows 网络类型，请检查网络服务。");
}

TEST_F(AddressesTest, WithoutTheListOfConnectionsNothingIsFound) {
  network.result = ConnectionsResult::NoConnections;
  expectRefused(u"无法读取 Windows 网络连接。");
}

TEST_F(AddressesTest, WithoutTheListOfAdaptersNothingIsFound) {
  network.adaptersFail = true;
  expectRefused(u"无法读取网络地址，请检查网络连接。");
}

TEST_F(AddressesTest, AnAdapterThatIsUpButNotConnectedYieldsNothing) {
  network.add(1, {kWired});
  network.connected = {2};
  expectRefused(u"未发现已连接的 IPv4 网络，请检查网络连接后重新启动遥控服务。");
}

TEST_F(AddressesTest, AnAdapterThatIsDownOrLoopbackYieldsNothing) {
  network.add(1, {kWired}).isUp = false;
  network.add(2, {kWireless}).isLoopback = true;
  network.add(3, {kTunnel});
  expectAddresses({kTunnel});
}

TEST_F(AddressesTest, TheEmptyAddressIsNone) {
  network.add(1, {0, kWired});
  expectAddresses({kWired});
}

TEST_F(AddressesTest, HardwareComesBeforeATunnelWhateverTheMetrics) {
  network.add(1, {kTunnel});
  network.adapters.back().isHardware = false;
  network.adapters.back().metric = 1;
  network.add(2, {kWired}).metric = 99;
  expectAddresses({kWired, kTunnel});
}

TEST_F(AddressesTest, HardwareWithoutAGatewayStillComesBeforeATunnelWithOne) {
  network.add(1, {kTunnel}).isHardware = false;
  network.add(2, {kWired}).hasGateway = false;
  expectAddresses({kWired, kTunnel});
}

TEST_F(AddressesTest, WhereTheSystemDoesNotTellATunnelIsWhatItsTypeSays) {
  network.add(1, {kTunnel});
  network.adapters.back().isHardware = std::nullopt;
  network.adapters.back().isTunnel = true;
  network.add(2, {kWired}).isHardware = std::nullopt;
  expectAddresses({kWired, kTunnel});
}

TEST_F(AddressesTest, TheSystemsWordOnHardwareOutweighsTheType) {
  network.add(1, {kTunnel}).isTunnel = true;  // hardware takes precedence
  network.add(2, {kWired}).isHardware = false;
  expectAddresses({kTunnel, kWired});
}

TEST_F(AddressesTest, AGatewayComesBeforeADirectCable) {
  network.add(1, {kWired}).hasGateway = false;
  network.add(2, {kWireless}).metric = 50;
  expectAddresses({kWireless, kWired});
}

TEST_F(AddressesTest, TheSmallerMetricComesFirst) {
  network.add(1, {kWired}).metric = 50;
  network.add(2, {kWireless}).metric = 25;
  expectAddresses({kWireless, kWired});
}

TEST_F(AddressesTest, OfEqualWaysTheNumberInMemoryDecidesTheLastOctetFirst) {
  network.add(1, {ipv4(10, 0, 0, 9), ipv4(192, 168, 1, 2)});
  expectAddresses({ipv4(192, 168, 1, 2), ipv4(10, 0, 0, 9)});
}

TEST_F(AddressesTest, AnAddressThatComesTwiceKeepsItsFirstPlace) {
  network.add(1, {kWired}).metric = 1;
  network.add(2, {kWireless}).metric = 2;
  network.add(3, {kWired}).metric = 3;
  expectAddresses({kWired, kWireless});
}

TEST_F(AddressesTest, SixtyThreeAreServedAndOneMoreIsRefused) {
  addMany(63);
  std::vector<uint32_t> found;
  std::u16string error;
  EXPECT_TRUE(discoverAddresses(network, found, error));
  EXPECT_EQ(found.size(), 63u);
  network.add(2, {kWired});
  expectRefused(u"网络地址过多，无法启动遥控服务。");
}

TEST_F(AddressesTest, AnAddressThatComesTwiceCountsOnce) {
  addMany(63);
  network.add(2, {ipv4(10, 1, 1, 1)});
  std::vector<uint32_t> found;
  std::u16string error;
  EXPECT_TRUE(discoverAddresses(network, found, error)) << utf8From(error);
  EXPECT_EQ(found.size(), 63u);
}

TEST_F(AddressesTest, TheListHasALinePerAddress) {
  EXPECT_EQ(remoteUrlList({kWired, kWireless}, u"", 8080),
            u"http://192.168.1.5:8080/\r\nhttp://10.0.0.7:8080/");
}

TEST_F(AddressesTest, AKeyRidesBehindEachAddress) {
  EXPECT_EQ(remoteUrlList({kWired, kWireless}, u"ab12", 8080),
            u"http://192.168.1.5:8080/#ab12\r\nhttp://10.0.0.7:8080/#ab12");
}

TEST_F(AddressesTest, WithoutAnAddressTheListNamesThisMachine) {
  EXPECT_EQ(remoteUrlList({}, u"", 22222), u"http://127.0.0.1:22222/");
  EXPECT_EQ(remoteUrlList({}, u"k", 22222), u"http://127.0.0.1:22222/#k");
}

}  // namespace
}  // namespace mrl
