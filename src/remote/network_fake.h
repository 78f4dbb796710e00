#pragma once

#include <functional>
#include <vector>

#include "http/ipv4.h"
#include "remote/network.h"

namespace mrl {

// Two addresses of this machine, for tests.
inline constexpr uint32_t kWired = ipv4(192, 168, 1, 5);
inline constexpr uint32_t kWireless = ipv4(10, 0, 0, 7);

class NetworkFake : public Network {
 public:
  ConnectionsResult connectedInterfaces(std::vector<uint32_t>& indices) override {
    ++questions;
    if (beforeQuestion) beforeQuestion();
    indices = connected;
    return result;
  }
  bool listAdapters(std::vector<NetworkAdapter>& list) override {
    ++questions;
    if (adaptersFail) return false;
    list = adapters;
    return true;
  }

  /// A connected card with a gateway.
  NetworkAdapter& add(uint32_t index, const std::vector<uint32_t>& addresses) {
    connected.push_back(index);
    adapters.push_back({.index = index,
                        .isUp = true,
                        .isHardware = true,
                        .hasGateway = true,
                        .addresses = addresses});
    return adapters.back();
  }

  ConnectionsResult result = ConnectionsResult::Listed;
  std::vector<uint32_t> connected;
  bool adaptersFail = false;
  std::vector<NetworkAdapter> adapters;
  int questions = 0;
  std::function<void()> beforeQuestion;
};

}  // namespace mrl
