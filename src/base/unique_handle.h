// One owner for a thing that must be closed exactly once: a GDI object, a file, an event.
#pragma once

#include <utility>

namespace mrl {

/// `Traits` has `none()`, the value that means "nothing is held", and `close(value)`, which is
/// never called with it. Closes the old value before it takes a new one.
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
    // Emptied first: closing may call back to code that looks here.
    const Value old = std::exchange(value, owned);
    if (old != Traits::none()) Traits::close(old);
  }
  /// Gives the value up unclosed.
  [[nodiscard]] Value release() { return std::exchange(value, Traits::none()); }
  /// The address for a function that stores a new value; what was held is closed first.
  [[nodiscard]] Value* put() {
    reset();
    return &value;
  }

 private:
  Value value = Traits::none();
};

}  // namespace mrl
