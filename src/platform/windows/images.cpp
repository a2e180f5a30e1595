#include "platform/images.h"

#include <cstring>
#include <vector>

#include "platform/windows/gdiplus_flat.h"

namespace platform {

std::optional<ImageEncoder> FindImageEncoder(const std::wstring& mimeType) {
  UINT count = 0;
  UINT bytes = 0;
  flat::GdipGetImageEncodersSize(&count, &bytes);
  if (bytes == 0) {
    return std::nullopt;
  }
  // The records point to texts that lie after them in the same memory.
  std::vector<Gdiplus::ImageCodecInfo> records(bytes / sizeof(Gdiplus::ImageCodecInfo) + 1);
  flat::GdipGetImageEncoders(count, bytes, records.data());
  for (UINT index = 0; index < count; ++index) {
    if (records[index].MimeType != nullptr && mimeType == records[index].MimeType) {
      ImageEncoder encoder = {};
      std::memcpy(encoder.data(), &records[index].Clsid, encoder.size());
      return encoder;
    }
  }
  return std::nullopt;
}

bool ConvertImage(const std::string& from, const std::string& to, const ImageEncoder& encoder) {
  Gdiplus::GpBitmap* loaded = nullptr;
  if (flat::GdipCreateBitmapFromFile(Widened(from).c_str(), &loaded) != Gdiplus::Ok) {
    return false;
  }
  const OwnedImage bitmap(loaded);
  CLSID identifier = {};
  std::memcpy(&identifier, encoder.data(), encoder.size());
  flat::GdipSaveImageToFile(bitmap.get(), Widened(to).c_str(), &identifier, nullptr);
  return true;
}

}  // namespace platform
