// Owning a handle of the system or a stream of the C library.
#pragma once

#include <cstdio>
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

// A C stream that is closed when its owner goes.
using OwnedFile = Owned<std::FILE*, std::fclose>;

}  // namespace platform
