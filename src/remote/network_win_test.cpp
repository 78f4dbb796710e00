#include "remote/network_win.h"

#include <gtest/gtest.h>
#include <winsock2.h>
#include <ws2tcpip.h>

#include <iphlpapi.h>
#include <netioapi.h>
#include <netlistmgr.h>
#include <objbase.h>

#include <algorithm>
#include <cstring>

#include "base/replaced_import_win.h"
#include "http/ipv4.h"

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
  (void)CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);  // balances the fixture's CoUninitialize
}

/// One adapter as the system reports it.
struct AdapterRecord {
  AdapterRecord(ULONG index, IFTYPE type, std::initializer_list<uint32_t> ownAddresses) {
    record.IfIndex = index;
    record.IfType = type;
    record.OperStatus = IfOperStatusUp;
    record.Luid.Value = index;
    PIP_ADAPTER_UNICAST_ADDRESS* end = &record.FirstUnicastAddress;
    for (const uint32_t address : ownAddresses) {
      places[count].sin_family = AF_INET;
      places[count].sin_addr.s_addr = address;
      entries[count].Address.lpSockaddr = reinterpret_cast<sockaddr*>(&places[count]);
      *end = &entries[count];
      end = &entries[count].Next;
      ++count;
    }
  }
  AdapterRecord(const AdapterRecord&) = delete;
  void addGateway() { record.FirstGatewayAddress = &gateway; }

  IP_ADAPTER_ADDRESSES record{};
  IP_ADAPTER_GATEWAY_ADDRESS gateway{};
  IP_ADAPTER_UNICAST_ADDRESS entries[3]{};
  sockaddr_in places[3]{};
  size_t count = 0;
};

/// Scripted answers of the replaced system calls.
struct SystemStory {
  IP_ADAPTER_ADDRESSES* first = nullptr;
  ULONG bytesNeeded = 0;  // smaller buffers are refused
  ULONG failure = NO_ERROR;
  NET_IFINDEX hardware = 0;  // the only adapter that is hardware
  NET_IFINDEX unknown = 0;   // adapter whose card can't be queried
  ULONG family = 0;          // as requested
  ULONG flags = 0;
  std::vector<ULONG> offered;  // buffer size of each call, in bytes
};
SystemStory asked;

ULONG WINAPI adaptersAddresses(ULONG family, ULONG flags, void* /*reserved*/,
                               IP_ADAPTER_ADDRESSES* out, ULONG* size) {
  asked.family = family;
  asked.flags = flags;
  asked.offered.push_back(*size);
  if (asked.failure != NO_ERROR) return asked.failure;
  if (*size < asked.bytesNeeded) {
    *size = asked.bytesNeeded;
    return ERROR_BUFFER_OVERFLOW;
  }
  *out = *asked.first;
  return NO_ERROR;
}

DWORD WINAPI ifEntry(MIB_IF_ROW2* row) {
  const auto index = static_cast<NET_IFINDEX>(row->InterfaceLuid.Value);
  if (index == asked.unknown) return ERROR_FILE_NOT_FOUND;
  row->InterfaceAndOperStatusFlags.HardwareInterface = index == asked.hardware ? TRUE : FALSE;
  return NO_ERROR;
}

class AdapterListTest : public ::testing::Test {
 protected:
  AdapterListTest() {
    asked = {.first = &card.record, .hardware = 5, .unknown = 7};
    card.record.Next = &tunnel.record;
    tunnel.record.Next = &stranger.record;
    card.record.Ipv4Metric = 25;
    card.addGateway();
    tunnel.record.Ipv4Metric = 3;
    stranger.record.OperStatus = IfOperStatusDown;
  }
  std::vector<NetworkAdapter> list() {
    std::vector<NetworkAdapter> adapters;
    EXPECT_TRUE(network.listAdapters(adapters));
    return adapters;
  }

  AdapterRecord card{5, IF_TYPE_ETHERNET_CSMACD, {ipv4(192, 168, 1, 5), ipv4(192, 168, 1, 6)}};
  AdapterRecord tunnel{6, IF_TYPE_TUNNEL, {ipv4(10, 0, 0, 7)}};
  AdapterRecord stranger{7, IF_TYPE_SOFTWARE_LOOPBACK, {}};
  const ReplacedImport<decltype(adaptersAddresses)> system{"GetAdaptersAddresses",
                                                           adaptersAddresses};
  const ReplacedImport<decltype(ifEntry)> cards{"GetIfEntry2", ifEntry};
  NetworkWin network;
};

TEST_F(AdapterListTest, EachAdapterHasWhatTheSystemTellsOfIt) {
  const std::vector<NetworkAdapter> adapters = list();
  ASSERT_EQ(adapters.size(), 3U);
  EXPECT_EQ(adapters[0].index, 5U);
  EXPECT_TRUE(adapters[0].isUp);
  EXPECT_EQ(adapters[0].addresses, (std::vector{ipv4(192, 168, 1, 5), ipv4(192, 168, 1, 6)}));
  EXPECT_EQ(adapters[1].index, 6U);
  EXPECT_FALSE(adapters[2].isUp);
  EXPECT_TRUE(adapters[2].addresses.empty());
}

TEST_F(AdapterListTest, LoopbackAndTunnelsAreToldByTheirType) {
  const std::vector<NetworkAdapter> adapters = list();
  ASSERT_EQ(adapters.size(), 3U);
  EXPECT_FALSE(adapters[0].isLoopback || adapters[0].isTunnel);
  EXPECT_TRUE(adapters[1].isTunnel && !adapters[1].isLoopback);
  EXPECT_TRUE(adapters[2].isLoopback && !adapters[2].isTunnel);
}

TEST_F(AdapterListTest, ACardIsHardwareIfTheSystemSaysSoAndUndecidedIfItDoesNot) {
  const std::vector<NetworkAdapter> adapters = list();
  ASSERT_EQ(adapters.size(), 3U);
  EXPECT_EQ(adapters[0].isHardware, true);
  EXPECT_EQ(adapters[1].isHardware, false);
  EXPECT_EQ(adapters[2].isHardware, std::nullopt);
}

TEST_F(AdapterListTest, MetricAndGatewayAreThoseOfTheAdapter) {
  const std::vector<NetworkAdapter> adapters = list();
  ASSERT_EQ(adapters.size(), 3U);
  EXPECT_EQ(adapters[0].metric, 25U);
  EXPECT_TRUE(adapters[0].hasGateway);
  EXPECT_EQ(adapters[1].metric, 3U);
  EXPECT_FALSE(adapters[1].hasGateway);
}

TEST_F(AdapterListTest, AnAddressOfAnotherFamilyOrNoneIsPassedOver) {
  card.places[0].sin_family = AF_INET6;
  tunnel.entries[0].Address.lpSockaddr = nullptr;
  const std::vector<NetworkAdapter> adapters = list();
  ASSERT_EQ(adapters.size(), 3U);
  EXPECT_EQ(adapters[0].addresses, std::vector{ipv4(192, 168, 1, 6)});
  EXPECT_TRUE(adapters[1].addresses.empty());
}

TEST_F(AdapterListTest, TheSystemIsAskedForIpv4WithGateways) {
  list();
  EXPECT_EQ(asked.family, ULONG{AF_INET});
  EXPECT_EQ(asked.flags, 0x8EU);
  EXPECT_EQ(asked.offered, std::vector<ULONG>{16384});
}

TEST_F(AdapterListTest, ABufferThatIsTooSmallIsGrownOnceToWhatIsNeeded) {
  asked.bytesNeeded = 40000;
  EXPECT_EQ(list().size(), 3U);
  EXPECT_EQ(asked.offered, (std::vector<ULONG>{16384, 40000}));
}

TEST_F(AdapterListTest, AnyOtherFailureIsOne) {
  std::vector<NetworkAdapter> adapters;
  asked.failure = ERROR_BUFFER_OVERFLOW;  // on the second call too
  EXPECT_FALSE(network.listAdapters(adapters));
  EXPECT_EQ(asked.offered.size(), 2U);
  asked.failure = ERROR_NO_DATA;
  EXPECT_FALSE(network.listAdapters(adapters));
  EXPECT_EQ(asked.offered.size(), 3U);
  EXPECT_TRUE(adapters.empty());
}

/// A test object that counts its references.
template <class Interface>
class Owned : public Interface {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID /*id*/, void** /*out*/) override {
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return E_NOTIMPL;
  }

  ULONG references = 0;
};

struct CardState : Owned<INetworkConnection> {
  HRESULT STDMETHODCALLTYPE get_IsConnected(VARIANT_BOOL* out) override {
    *out = connected;
    return stateResult;
  }
  HRESULT STDMETHODCALLTYPE GetAdapterId(GUID* out) override {
    out->Data1 = adapter;
    return adapterResult;
  }
  HRESULT STDMETHODCALLTYPE GetNetwork(INetwork**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_IsConnectedToInternet(VARIANT_BOOL*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetConnectivity(NLM_CONNECTIVITY*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetConnectionId(GUID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetDomainType(NLM_DOMAIN_TYPE*) override { return E_NOTIMPL; }

  VARIANT_BOOL connected = VARIANT_TRUE;
  HRESULT stateResult = S_OK;
  ULONG adapter = 0;
  HRESULT adapterResult = S_OK;
};

struct ConnectionList : Owned<IEnumNetworkConnections> {
  HRESULT STDMETHODCALLTYPE Next(ULONG, INetworkConnection** out, ULONG* fetched) override {
    *fetched = 0;
    if (next == std::size(connections)) return S_FALSE;
    *out = &connections[next++];
    (*out)->AddRef();
    *fetched = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE get__NewEnum(IEnumVARIANT**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Clone(IEnumNetworkConnections**) override { return E_NOTIMPL; }

  CardState connections[4];
  size_t next = 0;
};

struct Manager : Owned<INetworkListManager> {
  HRESULT STDMETHODCALLTYPE GetNetworkConnections(IEnumNetworkConnections** out) override {
    if (FAILED(result)) return result;
    *out = &list;
    list.AddRef();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetNetworks(NLM_ENUM_NETWORK, IEnumNetworks**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE GetNetwork(GUID, INetwork**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetNetworkConnection(GUID, INetworkConnection**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE IsConnectedToInternet(VARIANT_BOOL*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE IsConnected(VARIANT_BOOL*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetConnectivity(NLM_CONNECTIVITY*) override { return E_NOTIMPL; }

  HRESULT result = S_OK;
  ConnectionList list;
};

Manager* manager = nullptr;
constexpr ULONG kWithoutLuid = 90;
constexpr ULONG kWithoutIndex = 91;

HRESULT WINAPI createInstance(REFCLSID /*type*/, IUnknown* /*outer*/, DWORD /*context*/,
                              REFIID /*id*/, void** out) {
  manager->AddRef();
  *out = manager;
  return S_OK;
}
DWORD WINAPI guidToLuid(const GUID* guid, NET_LUID* luid) {
  luid->Value = guid->Data1;
  return guid->Data1 == kWithoutLuid ? ERROR_INVALID_PARAMETER : NO_ERROR;
}
DWORD WINAPI luidToIndex(const NET_LUID* luid, NET_IFINDEX* index) {
  *index = static_cast<NET_IFINDEX>(luid->Value);
  return luid->Value == kWithoutIndex ? ERROR_INVALID_PARAMETER : NO_ERROR;
}

class ConnectionsTest : public ::testing::Test {
 protected:
  ConnectionsTest() {
    manager = &own;
    for (ULONG i = 0; i < 4; ++i) connections[i].adapter = i + 1;
  }
  ~ConnectionsTest() override {
    EXPECT_EQ(own.references + own.list.references, 0U) << "something is held for ever";
    for (const CardState& each : connections) EXPECT_EQ(each.references, 0U);
  }
  std::vector<uint32_t> connected() {
    std::vector<uint32_t> indices;
    EXPECT_EQ(network.connectedInterfaces(indices), ConnectionsResult::Listed);
    return indices;
  }

  Manager own;
  CardState (&connections)[4] = own.list.connections;
  const ReplacedImport<decltype(createInstance)> creation{"CoCreateInstance", createInstance};
  const ReplacedImport<decltype(guidToLuid)> luids{"ConvertInterfaceGuidToLuid", guidToLuid};
  const ReplacedImport<decltype(luidToIndex)> indices{"ConvertInterfaceLuidToIndex", luidToIndex};
  NetworkWin network;
};

TEST_F(ConnectionsTest, EachConnectedInterfaceIsListed) {
  EXPECT_EQ(connected(), (std::vector<uint32_t>{1, 2, 3, 4}));
}

TEST_F(ConnectionsTest, OneThatIsNotConnectedOrCannotBeAskedIsLeftOut) {
  connections[0].connected = VARIANT_FALSE;
  connections[1].stateResult = E_FAIL;
  connections[2].adapterResult = E_FAIL;
  EXPECT_EQ(connected(), std::vector<uint32_t>{4});
}

TEST_F(ConnectionsTest, OneWhoseInterfaceIsNotKnownIsLeftOut) {
  connections[1].adapter = kWithoutLuid;
  connections[2].adapter = kWithoutIndex;
  EXPECT_EQ(connected(), (std::vector<uint32_t>{1, 4}));
}

TEST_F(ConnectionsTest, AListThatIsRefusedIsAFailure) {
  own.result = E_ACCESSDENIED;
  std::vector<uint32_t> none;
  EXPECT_EQ(network.connectedInterfaces(none), ConnectionsResult::NoConnections);
  EXPECT_TRUE(none.empty());
}

}  // namespace
}  // namespace mrl
