#include "windows/tone.h"

#include <cmath>
#include <filesystem>
#include <fstream>

namespace mrl {

void writeTone(const std::wstring& path, int seconds) {
  std::ofstream file(std::filesystem::path(path), std::ios::binary);
  const auto put = [&](uint32_t value, int bytes) {
    for (int i = 0; i < bytes; ++i) file.put(static_cast<char>(value >> (8 * i) & 0xFF));
  };
  const auto dataBytes = static_cast<uint32_t>(toneBytes(seconds));
  file << "RIFF";
  put(36 + dataBytes, 4);
  file << "WAVEfmt ";
  put(16, 4);
  put(1, 2);
  put(1, 2);
  put(kToneRate, 4);
  put(kToneRate * 2, 4);
  put(2, 2);
  put(16, 2);
  file << "data";
  put(dataBytes, 4);
  for (int i = 0; i < kToneRate * seconds; ++i) {
    put(static_cast<uint32_t>(std::lround(8000 * std::sin(i * 0.3456))), 2);
  }
}

}  // namespace mrl
