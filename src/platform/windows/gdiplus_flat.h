// GDI+'s flat interface, with what it takes to include it, its bitmaps and its texts.
#pragma once

#include <windows.h>
// gdiplus.h builds on both.
#include <objidl.h>
// The flat interface and the start-up call.
#include <gdiplus.h>

#include <string>

#include "platform/owned.h"

namespace platform {

namespace flat = Gdiplus::DllExports;

using OwnedImage = Owned<Gdiplus::GpBitmap*, flat::GdipDisposeImage>;

// The wide form of a text in the system's code page.
inline std::wstring Widened(const std::string& text) {
  // With its terminating zero, so that the length is never 0.
  const int length = static_cast<int>(text.size()) + 1;
  std::wstring wide(text.size() + 1, L'\0');
  const int written = MultiByteToWideChar(CP_ACP, 0, text.c_str(), length, wide.data(), length);
  wide.resize(written > 0 ? static_cast<std::size_t>(written) - 1 : 0);
  return wide;
}

}  // namespace platform
