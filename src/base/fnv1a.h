// 64-bit FNV-1a, the hash for ids and revisions. Offers no protection against forged input.
#pragma once

#include <cstdint>

namespace mrl {

inline constexpr uint64_t kFnvOffsetBasis = 0xCBF29CE484222325;

/// `hash` extended by one unit, mixed in as a whole and not byte by byte.
constexpr uint64_t fnv1a(uint64_t hash, uint32_t unit) { return (hash ^ unit) * 0x100000001B3; }

}  // namespace mrl
