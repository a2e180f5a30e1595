#include "platform/images.h"

#include <cstddef>
#include <cstring>
#include <filesystem>
#include <memory>
#include <vector>

#include "platform/linux/gdiplus_library.h"
#include "platform/linux/native_path.h"

namespace platform {
namespace {

constexpr int kOk = 0;

// GDI+'s record of an encoder; its wide characters have 16 bits on every system.
struct CodecInfo {
  ImageEncoder clsid;
  std::array<std::uint8_t, 16> formatId;
  const char16_t* codecName;
  const char16_t* dllName;
  const char16_t* formatDescription;
  const char16_t* fileNameExtension;
  const char16_t* mimeType;
  std::uint32_t flags;
  std::uint32_t version;
  std::uint32_t signatureCount;
  std::uint32_t signatureSize;
  const std::uint8_t* signaturePattern;
  const std::uint8_t* signatureMask;
};

using EncodersSizeCall = int (*)(std::uint32_t* count, std::uint32_t* bytes);
using EncodersCall = int (*)(std::uint32_t count, std::uint32_t bytes, CodecInfo* records);
using LoadCall = int (*)(const char16_t* path, void** bitmap);
using SaveCall = int (*)(void* image, const char16_t* path, const ImageEncoder* encoder,
                         const void* parameters);
using DisposeCall = int (*)(void* image);

bool IsSameText(const std::wstring& text, const char16_t* other) {
  return other != nullptr && std::u16string(text.begin(), text.end()) == other;
}

}  // namespace

std::optional<ImageEncoder> FindImageEncoder(const std::wstring& mimeType) {
  const auto askSize = FindGdiplusCall<EncodersSizeCall>("GdipGetImageEncodersSize");
  const auto askEncoders = FindGdiplusCall<EncodersCall>("GdipGetImageEncoders");
  std::uint32_t count = 0;
  std::uint32_t bytes = 0;
  if (askSize == nullptr || askEncoders == nullptr || askSize(&count, &bytes) != kOk ||
      bytes == 0) {
    return std::nullopt;
  }
  // The records point to texts that lie after them in the same memory.
  std::vector<CodecInfo> records(bytes / sizeof(CodecInfo) + 1);
  if (askEncoders(count, bytes, records.data()) != kOk) {
    return std::nullopt;
  }
  for (std::uint32_t index = 0; index < count; ++index) {
    if (IsSameText(mimeType, records[index].mimeType)) {
      return records[index].clsid;
    }
  }
  return std::nullopt;
}

bool ConvertImage(const std::string& from, const std::string& to, const ImageEncoder& encoder) {
  const auto load = FindGdiplusCall<LoadCall>("GdipCreateBitmapFromFile");
  const auto save = FindGdiplusCall<SaveCall>("GdipSaveImageToFile");
  const auto dispose = FindGdiplusCall<DisposeCall>("GdipDisposeImage");
  if (load == nullptr || save == nullptr || dispose == nullptr) {
    return false;
  }
  try {
    // Names that are no UTF-8 have no wide form.
    const std::u16string wideFrom = std::filesystem::path(NativePath(from)).u16string();
    const std::u16string wideTo = std::filesystem::path(NativePath(to)).u16string();
    void* loaded = nullptr;
    if (load(wideFrom.c_str(), &loaded) != kOk) {
      return false;
    }
    const std::unique_ptr<void, DisposeCall> bitmap(loaded, dispose);
    save(bitmap.get(), wideTo.c_str(), &encoder, nullptr);
    return true;
  } catch (const std::filesystem::filesystem_error&) {
    return false;
  }
}

}  // namespace platform
