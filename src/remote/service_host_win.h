#pragma once

#include "remote/service_host.h"

namespace mrl {

class ServiceHostWin : public ServiceHost {
 public:
  bool fillRandom(std::span<uint8_t> /*bytes*/) override { return false; }
  bool readPage(std::string& /*page*/) override { return false; }
};

}  // namespace mrl
