#include "platform/gdiplus.h"

#include <dlfcn.h>

namespace platform {
namespace {

struct StartupInput {
  std::uint32_t version = 1;
  void* debugCallback = nullptr;
  int suppressBackgroundThread = 0;
  int suppressExternalCodecs = 0;
};
using StartupCall = int (*)(std::uintptr_t* token, const StartupInput* input, void* output);
using ShutdownCall = void (*)(std::uintptr_t token);

// The library stays loaded once it is in: it cannot be unloaded safely.
template <typename Call>
Call FindCall(const char* name) {
  static void* const library = dlopen("libgdiplus.so.0", RTLD_NOW | RTLD_LOCAL);
  return library == nullptr ? nullptr : reinterpret_cast<Call>(dlsym(library, name));
}

}  // namespace

GdiplusSession::GdiplusSession() {
  const StartupInput input;
  if (const auto start = FindCall<StartupCall>("GdiplusStartup")) {
    start(&token_, &input, nullptr);
  }
}

GdiplusSession::~GdiplusSession() {
  Stop();
}

void GdiplusSession::Stop() {
  if (token_ != 0) {
    if (const auto shutdown = FindCall<ShutdownCall>("GdiplusShutdown")) {
      shutdown(token_);
    }
    token_ = 0;
  }
}

}  // namespace platform
