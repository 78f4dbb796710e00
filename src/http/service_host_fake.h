#pragma once

#include "http/service_host.h"

namespace mrl {

class ServiceHostFake : public ServiceHost {
 public:
  bool fillRandom(std::span<uint8_t> bytes) override {
    if (failsRandom) return false;
    for (uint8_t& byte : bytes) byte = nextByte++;
    return true;
  }
  bool readPage(std::string& page) override {
    if (hasPage) page = pageBytes;
    return hasPage;
  }

  bool failsRandom = false;
  bool hasPage = true;
  uint8_t nextByte = 0;
  std::string pageBytes = "\xEF\xBB\xBF<!doctype html>";
};

}  // namespace mrl
