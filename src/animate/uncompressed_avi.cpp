// Uncompressed AVI files through the native AVI layer.
#include "animate/uncompressed_avi.h"

#include <algorithm>

#include "film/failure.h"
#include "film/interruption.h"
#include "film/quoted.h"
#include "movie/native_avi/frame_bitmap.h"
#include "movie/native_avi/native_avi.h"
#include "platform/gdiplus.h"

namespace animate {

const bool kHasUncompressedAvi = true;

namespace {

[[noreturn]] void FailToWrite(HRESULT result) {
  std::string text(200, '\0');
  text.resize(std::min(AviResultText(result, text.data(), text.size()), text.size() - 1));
  throw Failure("the animation cannot be written: " + text);
}

FrameRate RateOf(const Film& film) {
  const std::optional<FrameRate> rate = ExactFrameRate(film.rate.text);
  if (!rate) {
    RefuseUse("--rate: an uncompressed AVI cannot play exactly " + film.rate.text +
              " frames a second");
  }
  return *rate;
}

void WriteFrames(const Film& film, FrameRate rate, const std::filesystem::path& target) {
  std::unique_ptr<AviHandle> avi =
      CreateAviFile(platform::ArgumentOfPath(target).c_str(), rate, nullptr);
  if (!avi) {
    throw Failure("the animation cannot be written");
  }
  for (std::size_t number = 0; number < film.shown.size(); ++number) {
    StopIfInterrupted();
    const std::filesystem::path& frame = film.frames[film.shown[number]].path;
    const OwnedBitmap bitmap = LoadFrameBitmap(platform::ArgumentOfPath(frame).c_str());
    if (!bitmap) {
      throw Failure(Quoted(frame.filename()) + " is damaged and cannot be loaded");
    }
    if (const HRESULT result = AddVideoFrame(avi.get(), bitmap.get()); result != AVIERR_OK) {
      FailToWrite(result);
    }
  }
  if (const HRESULT result = CloseAviFile(std::move(avi)); result != AVIERR_OK) {
    FailToWrite(result);
  }
}

Measurement ProveAvi(const Film& film, FrameRate rate, const std::filesystem::path& target) {
  const AviLibrary library;
  IAVIStream* opened = nullptr;
  if (AVIStreamOpenFromFileA(&opened, platform::ArgumentOfPath(target).c_str(), streamtypeVIDEO, 0,
                             OF_READ, nullptr) != AVIERR_OK) {
    throw Failure("the finished file cannot be read back");
  }
  const OwnedAviStream stream(opened);
  AVISTREAMINFOA info = {};
  AVIStreamInfoA(stream.get(), &info, sizeof(info));
  const auto count = static_cast<std::size_t>(std::max(AVIStreamLength(stream.get()), 0L));
  LONG size = 0;
  // The last picture has to be there, with all its bytes.
  const HRESULT last =
      AVIStreamRead(stream.get(), static_cast<LONG>(count) - 1, 1, nullptr, 0, &size, nullptr);
  const LONG wanted = film.size.width * film.size.height * 4;
  if (count != film.shown.size() || info.dwRate != rate.rate || info.dwScale != rate.scale ||
      last != AVIERR_OK || size != wanted) {
    throw Failure("the finished file is not whole");
  }
  return {count, static_cast<double>(count) / film.rate.value, film.size};
}

}  // namespace

Measurement MakeUncompressedAvi(const Film& film, const std::filesystem::path& target) {
  constexpr std::uint64_t kLargest = 2'000'000'000;
  constexpr std::uint64_t kBytesPerPixel = 4;
  const std::uint64_t picture = kBytesPerPixel * static_cast<std::uint64_t>(film.size.width) *
                                static_cast<std::uint64_t>(film.size.height);
  if (picture * film.shown.size() > kLargest) {
    throw Failure(
        "--without-converter: an uncompressed AVI of these frames would be larger than 2 GB");
  }
  const FrameRate rate = RateOf(film);
  const platform::GdiplusSession gdiplus;
  WriteFrames(film, rate, target);
  return ProveAvi(film, rate, target);
}

}  // namespace animate
