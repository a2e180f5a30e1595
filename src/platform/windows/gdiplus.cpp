#include "platform/gdiplus.h"

#include "platform/windows/gdiplus_flat.h"

namespace platform {

GdiplusSession::GdiplusSession() {
  const Gdiplus::GdiplusStartupInput input;
  ULONG_PTR token = 0;
  if (Gdiplus::GdiplusStartup(&token, &input, nullptr) == Gdiplus::Ok) {
    token_ = token;
  }
}

GdiplusSession::~GdiplusSession() {
  Stop();
}

void GdiplusSession::Stop() {
  if (token_ != 0) {
    Gdiplus::GdiplusShutdown(token_);
    token_ = 0;
  }
}

}  // namespace platform
