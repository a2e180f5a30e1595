#include "movie/native_avi/avi_file.h"

#include <algorithm>
#include <cstdint>
#include <numeric>

#include "frames/frame_rate.h"

DWORD FramePeriod(int frameRate) {
  return static_cast<DWORD>(1000 / UsableFrameRate(frameRate));
}

std::optional<FrameRate> ExactFrameRate(std::string_view decimal) {
  constexpr std::uint64_t kLargest = 0x7FFFFFFF;
  constexpr std::uint64_t kMicroseconds = 1'000'000;
  constexpr std::uint64_t kTooLong = std::uint64_t{1} << 32;
  // What 64 bits can hold, whatever the digits.
  constexpr std::size_t kMostCharacters = 19;
  if (decimal.size() > kMostCharacters) {
    return std::nullopt;
  }
  std::uint64_t rate = 0;
  std::uint64_t scale = 1;
  bool isAfterPoint = false;
  for (const char character : decimal) {
    if (character == '.') {
      isAfterPoint = true;
    } else {
      rate = rate * 10 + static_cast<std::uint64_t>(character - '0');
      scale *= isAfterPoint ? 10 : 1;
    }
  }
  const std::uint64_t divisor = std::gcd(rate, scale);
  rate /= divisor;
  scale /= divisor;
  if (rate == 0 || std::max(rate, scale) > kLargest || scale * kMicroseconds / rate >= kTooLong) {
    return std::nullopt;
  }
  return FrameRate{static_cast<DWORD>(rate), static_cast<DWORD>(scale)};
}

std::unique_ptr<AviHandle> CreateAviFile(const CString& path, DWORD period,
                                         const WAVEFORMATEX* audioFormat) {
  return CreateAviFile(path, FrameRate{.rate = 1000, .scale = period}, audioFormat);
}

std::unique_ptr<AviHandle> CreateAviFile(const CString& path, FrameRate frameRate,
                                         const WAVEFORMATEX* audioFormat) {
  // The handle comes first, since it starts the library.
  auto handle = std::make_unique<AviHandle>();
  IAVIFile* file = nullptr;
  if (AVIFileOpenA(&file, path.GetString(), OF_WRITE | OF_CREATE, nullptr) != AVIERR_OK) {
    return nullptr;
  }
  handle->file.reset(file);
  handle->frameRate = frameRate;
  if (audioFormat != nullptr) {
    handle->audioFormat = *audioFormat;
  }
  return handle;
}

HRESULT CloseAviFile(std::unique_ptr<AviHandle> handle) {
  if (handle == nullptr) {
    return AVIERR_BADHANDLE;
  }
  // The rest is released in reverse order of the fields: the compressed stream, the plain one, the
  // file, the library.
  handle->audioStream.reset();
  return AVIERR_OK;
}
