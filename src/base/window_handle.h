// A window handle as the portable code sees it: a value to store, compare and pass back.
#pragma once

#include <cstdint>

namespace mrl {

/// Opaque outside the Windows edges. 0 is invalid. Signed and 64 bits wide, because a sign-extended
/// 32-bit handle may be negative. Owns nothing.
struct WindowHandle {
  int64_t value = 0;

  explicit operator bool() const { return value != 0; }
  bool operator==(const WindowHandle&) const = default;
};

}  // namespace mrl
