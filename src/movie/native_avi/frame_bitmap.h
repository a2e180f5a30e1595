// Frames as bitmaps that an AVI can take.
#pragma once

#include <windows.h>

#include <memory>

#include "text/cstring.h"

struct BitmapDeleter {
  using pointer = HBITMAP;
  void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using OwnedBitmap = std::unique_ptr<HBITMAP, BitmapDeleter>;

// Loads an image file as a DIB section of 32 bits a pixel, transparent parts on opaque black. GDI+
// has to be started; the file is closed again on return. Returns null when GDI+ cannot load it.
OwnedBitmap LoadFrameBitmap(const CString& path);
