// An owning reference to a COM object.
#pragma once

#include "base/unique_handle.h"

namespace mrl {

template <class Interface>
struct ComTraits {
  static Interface* none() { return nullptr; }
  static void close(Interface* object) { object->Release(); }
};

/// Takes ownership of the given reference without AddRef() and releases it on destruction. Use and
/// destroy it in the object's apartment.
template <class Interface>
class ComRef : public UniqueHandle<ComTraits<Interface>> {
 public:
  using UniqueHandle<ComTraits<Interface>>::UniqueHandle;

  /// REQUIRES: an object is held.
  Interface* operator->() const { return this->get(); }
  Interface& operator*() const { return *this->get(); }
};

}  // namespace mrl
