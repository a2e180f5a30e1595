#include "platform/gdiplus.h"

#include "platform/windows/gdiplus_flat.h"

namespace platform {

struct GdiplusSession::Token {
  Token() {
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&value, &input, nullptr) != Gdiplus::Ok) {
      value = 0;
    }
  }
  ~Token() {
    if (value != 0) {
      Gdiplus::GdiplusShutdown(value);
    }
  }
  Token(const Token&) = delete;
  Token& operator=(const Token&) = delete;

  ULONG_PTR value = 0;
};

GdiplusSession::GdiplusSession() : token_(std::make_unique<Token>()) {}

GdiplusSession::~GdiplusSession() = default;

void GdiplusSession::Stop() {
  token_.reset();
}

}  // namespace platform
