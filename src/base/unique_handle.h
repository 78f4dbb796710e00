// Unique ownership of a resource that must be closed exactly once: a GDI object, a file, an event.
#pragma once

#include <utility>

namespace mrl {

/// `Traits` has `none()`, the value that means "nothing is held", and `close(value)`, which is
/// never called with it. Closes the old value when it takes a new one.
template <class Traits>
class UniqueHandle {
 public:
  using Value = decltype(Traits::none());

  UniqueHandle() = default;
  explicit UniqueHandle(Value owned) : value(owned) {}
  UniqueHandle(UniqueHandle&& other) noexcept : value(other.release()) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    if (this != &other) reset(other.release());
    return *this;
  }
  ~UniqueHandle() { reset(); }

  explicit operator bool() const { return value != Traits::none(); }
  [[nodiscard]] Value get() const { return value; }

  void reset(Value owned = Traits::none()) {
    // Exchanged first: close() may call back into code that reads this object.
    const Value old = std::exchange(value, owned);
    if (old != Traits::none()) Traits::close(old);
  }
  /// Releases ownership without closing.
  [[nodiscard]] Value release() { return std::exchange(value, Traits::none()); }
  /// The address for an out parameter; closes the held value first.
  [[nodiscard]] Value* put() {
    reset();
    return &value;
  }

 private:
  Value value = Traits::none();
};

}  // namespace mrl
