// Network over Windows' network list and adapter functions.
#pragma once

#include "remote/network.h"

namespace mrl {

/// REQUIRES: COM is initialised on the calling thread.
class NetworkWin : public Network {
 public:
  ConnectionsResult connectedInterfaces(std::vector<uint32_t>& indices) override;
  bool listAdapters(std::vector<NetworkAdapter>& adapters) override;
};

}  // namespace mrl
