#include "movie/native_avi/frame_bitmap.h"

// gdiplus.h builds on it.
#include <objidl.h>
// The flat interface.
#include <gdiplus.h>

#include <string>

namespace {

constexpr Gdiplus::ARGB kOpaqueBlack = 0xFF000000;

struct ImageDisposer {
  void operator()(Gdiplus::GpBitmap* image) const { Gdiplus::DllExports::GdipDisposeImage(image); }
};

std::wstring Widened(const CString& text) {
  // With its terminating zero, so that the length is never 0.
  const int length = text.GetLength() + 1;
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.GetString(), length, wide.data(), length);
  return wide;
}

}  // namespace

OwnedBitmap LoadFrameBitmap(const CString& path) {
  Gdiplus::GpBitmap* loaded = nullptr;
  if (Gdiplus::DllExports::GdipCreateBitmapFromFile(Widened(path).c_str(), &loaded) !=
      Gdiplus::Ok) {
    return nullptr;
  }
  const std::unique_ptr<Gdiplus::GpBitmap, ImageDisposer> image(loaded);
  HBITMAP bitmap = nullptr;
  if (Gdiplus::DllExports::GdipCreateHBITMAPFromBitmap(image.get(), &bitmap, kOpaqueBlack) !=
      Gdiplus::Ok) {
    return nullptr;
  }
  return OwnedBitmap(bitmap);
}
