// What the remote service needs from the program and the system: random bytes and the web page.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace mrl {

/// UI thread only.
class ServiceHost {
 public:
  virtual ~ServiceHost() = default;
  /// Fills `bytes` from the system's secure random source; false on failure.
  [[nodiscard]] virtual bool fillRandom(std::span<uint8_t> bytes) = 0;
  /// The web page, byte for byte; false if the program doesn't contain it.
  [[nodiscard]] virtual bool readPage(std::string& page) = 0;
};

}  // namespace mrl
