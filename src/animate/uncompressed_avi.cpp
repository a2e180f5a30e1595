// Uncompressed AVI files through the native AVI layer.
#include "animate/uncompressed_avi.h"

#include <algorithm>

#include "animate/failure.h"
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

FrameRate RateOf(const Plan& plan) {
  const std::optional<FrameRate> rate = ExactFrameRate(plan.rateText);
  if (!rate) {
    throw Failure(
        "--rate: an uncompressed AVI cannot play exactly " + plan.rateText + " frames a second",
        ExitStatus::kWrongUse);
  }
  return *rate;
}

void WriteFrames(const Plan& plan, const Staging& staging, FrameRate rate,
                 const std::filesystem::path& target) {
  std::unique_ptr<AviHandle> avi =
      CreateAviFile(platform::ArgumentOfPath(target).c_str(), rate, nullptr);
  if (!avi) {
    throw Failure("the animation cannot be written");
  }
  for (std::size_t number = 0; number < plan.shown.size(); ++number) {
    StopIfInterrupted();
    const std::string link = platform::ArgumentOfPath(staging.Link(number));
    const OwnedBitmap bitmap = LoadFrameBitmap(link.c_str());
    if (!bitmap) {
      throw Failure("\"" + platform::TextOfPath(plan.frames[plan.shown[number]].path.filename()) +
                    "\" is damaged and cannot be loaded");
    }
    if (const HRESULT result = AddVideoFrame(avi.get(), bitmap.get()); result != AVIERR_OK) {
      FailToWrite(result);
    }
  }
  if (const HRESULT result = CloseAviFile(std::move(avi)); result != AVIERR_OK) {
    FailToWrite(result);
  }
}

Proven ProveAvi(const Plan& plan, FrameRate rate, const std::filesystem::path& target) {
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
  const LONG wanted = plan.size.width * plan.size.height * 4;
  if (count != plan.shown.size() || info.dwRate != rate.rate || info.dwScale != rate.scale ||
      last != AVIERR_OK || size != wanted) {
    throw Failure("the finished file is not whole");
  }
  return {count, static_cast<double>(count) / plan.rate, plan.size};
}

}  // namespace

Proven MakeUncompressedAvi(const Plan& plan, const Staging& staging,
                           const std::filesystem::path& target) {
  constexpr std::uint64_t kLargest = 2'000'000'000;
  constexpr std::uint64_t kBytesPerPixel = 4;
  const std::uint64_t picture = kBytesPerPixel * static_cast<std::uint64_t>(plan.size.width) *
                                static_cast<std::uint64_t>(plan.size.height);
  if (picture * plan.shown.size() > kLargest) {
    throw Failure(
        "--without-converter: an uncompressed AVI of these frames would be larger than 2 GB");
  }
  const FrameRate rate = RateOf(plan);
  const platform::GdiplusSession gdiplus;
  WriteFrames(plan, staging, rate, target);
  return ProveAvi(plan, rate, target);
}

}  // namespace animate
