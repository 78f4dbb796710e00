#pragma once

#include <functional>
#include <vector>

#include "http/sockets_fake.h"
#include "remote/network.h"

namespace mrl {

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

  /// Adds a connected network card with a gateway.
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
