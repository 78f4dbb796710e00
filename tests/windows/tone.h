// A sound file for tests. Windows only.
#pragma once

#include <cstdint>
#include <string>

namespace mrl {

inline constexpr int kToneRate = 8000;

/// Size of a 16-bit mono tone.
constexpr uintmax_t toneBytes(int seconds) { return uintmax_t{kToneRate} * 2 * seconds; }

void writeTone(const std::wstring& path, int seconds);

}  // namespace mrl
