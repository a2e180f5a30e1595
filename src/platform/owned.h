// Owning a handle of the system.
#pragma once

#include <memory>
#include <type_traits>

namespace platform {

template <auto Close>
struct Closing {
  template <typename Object>
  void operator()(Object* object) const {
    Close(object);  // NOLINT(cppcoreguidelines-owning-memory): this is the owner's hand.
  }
};

// Owns a handle (a pointer type) or nothing, and gives it to `Close` when the owner goes.
template <typename Handle, auto Close>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, Closing<Close>>;

}  // namespace platform
