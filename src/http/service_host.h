// What the remote service takes from the program and the system around it.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace mrl {

/// UI thread only.
class ServiceHost {
 public:
  virtual ~ServiceHost() = default;
  /// Fills `bytes` from the system's secure source; false when it has none to give.
  [[nodiscard]] virtual bool fillRandom(std::span<uint8_t> bytes) = 0;
  /// The web page, byte for byte; false when the program does not carry it.
  [[nodiscard]] virtual bool readPage(std::string& page) = 0;
};

}  // namespace mrl
