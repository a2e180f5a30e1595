#include "platform/gdiplus.h"

#include "platform/posix/gdiplus_library.h"

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

}  // namespace

GdiplusSession::GdiplusSession() {
  const StartupInput input;
  if (const auto start = FindGdiplusCall<StartupCall>("GdiplusStartup")) {
    start(&token_, &input, nullptr);
  }
}

GdiplusSession::~GdiplusSession() {
  Stop();
}

void GdiplusSession::Stop() {
  if (token_ != 0) {
    if (const auto shutdown = FindGdiplusCall<ShutdownCall>("GdiplusShutdown")) {
      shutdown(token_);
    }
    token_ = 0;
  }
}

}  // namespace platform
