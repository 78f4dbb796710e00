// A window of the desktop as the logic sees it: a value to keep, compare and hand back.
#pragma once

#include <cstdint>

namespace mrl {

/// Opaque; only the Windows edges know what it stands for. 0 is "none". Wide enough for the
/// negative handles that a sign-extended 32-bit number gives. Owns nothing.
struct WindowHandle {
  int64_t value = 0;

  explicit operator bool() const { return value != 0; }
  bool operator==(const WindowHandle&) const = default;
};

}  // namespace mrl
