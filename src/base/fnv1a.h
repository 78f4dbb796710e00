// The hash behind ids and revisions: FNV-1a of 64 bits. Not for anything that must resist a forger.
#pragma once

#include <cstdint>

namespace mrl {

inline constexpr uint64_t kFnvOffsetBasis = 0xCBF29CE484222325;

/// `hash` after one more unit, which is taken in whole.
constexpr uint64_t fnv1a(uint64_t hash, uint32_t unit) { return (hash ^ unit) * 0x100000001B3; }

}  // namespace mrl
