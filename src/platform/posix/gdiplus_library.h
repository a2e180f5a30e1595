// The GDI+ library, loaded at run time.
#pragma once

#include <dlfcn.h>

namespace platform {

// The address of one call of the flat interface; null when the library is not installed. The
// library stays loaded once it is in: it cannot be unloaded safely.
template <typename Call>
Call FindGdiplusCall(const char* name) {
  static void* const library = dlopen("libgdiplus.so.0", RTLD_NOW | RTLD_LOCAL);
  return library == nullptr ? nullptr : reinterpret_cast<Call>(dlsym(library, name));
}

}  // namespace platform
