#include "movie/native_avi/frame_bitmap.h"

#include "platform/windows/gdiplus_flat.h"

OwnedBitmap LoadFrameBitmap(const CString& path) {
  constexpr Gdiplus::ARGB kOpaqueBlack = 0xFF000000;
  Gdiplus::GpBitmap* loaded = nullptr;
  if (platform::flat::GdipCreateBitmapFromFile(platform::Widened(path).c_str(), &loaded) !=
      Gdiplus::Ok) {
    return nullptr;
  }
  const platform::OwnedImage image(loaded);
  HBITMAP bitmap = nullptr;
  if (platform::flat::GdipCreateHBITMAPFromBitmap(image.get(), &bitmap, kOpaqueBlack) !=
      Gdiplus::Ok) {
    return nullptr;
  }
  return OwnedBitmap(bitmap);
}
