// Frames as bitmaps that an AVI can take.
#pragma once

#include <windows.h>

#include "platform/owned.h"
#include "text/cstring.h"

using OwnedBitmap = platform::Owned<HBITMAP, DeleteObject>;

// Loads an image file as a DIB section of 32 bits a pixel, transparent parts on opaque black. GDI+
// has to be started; the file is closed again on return. Returns null when GDI+ cannot load it.
OwnedBitmap LoadFrameBitmap(const CString& path);
