// The GDI+ library, loaded at run time.
#pragma once

#include <dlfcn.h>

namespace platform {

// The library, loaded by the first call and started while there is a session; null when it is not
// installed. It stays loaded: it cannot be unloaded safely.
void* StartedGdiplusLibrary();

// The address of one call of the flat interface, of the type of a pointer to it; null when the
// library is not installed.
template <typename Call>
Call FindGdiplusCall(const char* name) {
  void* const library = StartedGdiplusLibrary();
  return library == nullptr ? nullptr : reinterpret_cast<Call>(dlsym(library, name));
}

}  // namespace platform
