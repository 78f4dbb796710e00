// Random bytes from the system, and the web page from the program's resources.
#pragma once

#include "http/service_host.h"

namespace mrl {

class ServiceHostWin : public ServiceHost {
 public:
  bool fillRandom(std::span<uint8_t> bytes) override;
  bool readPage(std::string& page) override;
};

}  // namespace mrl
