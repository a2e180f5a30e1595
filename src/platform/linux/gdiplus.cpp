#include "platform/gdiplus.h"

#include <cstdint>

#include "platform/linux/gdiplus_library.h"

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

// The token of the session that is under way, 0 until the library is started; null without a
// session.
std::uintptr_t*& SessionToken() {
  static std::uintptr_t* token = nullptr;
  return token;
}

}  // namespace

void* StartedGdiplusLibrary() {
  static void* const library = dlopen("libgdiplus.so.0", RTLD_NOW | RTLD_LOCAL);
  std::uintptr_t* const token = SessionToken();
  if (library != nullptr && token != nullptr && *token == 0) {
    const StartupInput input;
    reinterpret_cast<StartupCall>(dlsym(library, "GdiplusStartup"))(token, &input, nullptr);
  }
  return library;
}

struct GdiplusSession::Token {
  Token() { SessionToken() = &value; }
  ~Token() {
    if (value != 0) {
      FindGdiplusCall<ShutdownCall>("GdiplusShutdown")(value);
    }
    if (SessionToken() == &value) {
      SessionToken() = nullptr;
    }
  }
  Token(const Token&) = delete;
  Token& operator=(const Token&) = delete;

  std::uintptr_t value = 0;
};

GdiplusSession::GdiplusSession() : token_(std::make_unique<Token>()) {}

GdiplusSession::~GdiplusSession() = default;

void GdiplusSession::Stop() {
  token_.reset();
}

}  // namespace platform
