// IPv4 addresses in network order: the first octet comes first in memory on every machine.
#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <string>

namespace mrl {

using Octets = std::array<uint8_t, 4>;

constexpr uint32_t ipv4(uint8_t first, uint8_t second, uint8_t third, uint8_t fourth) {
  return std::bit_cast<uint32_t>(Octets{first, second, third, fourth});
}

constexpr uint32_t kLoopback = ipv4(127, 0, 0, 1);

/// True for all of 127.0.0.0/8, which only this computer itself can reach.
constexpr bool isLoopback(uint32_t address) { return std::bit_cast<Octets>(address)[0] == 127; }

/// "192.168.1.5"
inline std::string dottedText(uint32_t address) {
  const auto octets = std::bit_cast<Octets>(address);
  std::string text = std::to_string(octets[0]);
  for (size_t i = 1; i < octets.size(); ++i) text += '.' + std::to_string(octets[i]);
  return text;
}

}  // namespace mrl
