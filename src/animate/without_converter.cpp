#include "animate/without_converter.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <string>

#include "animate/failure.h"
#include "animate/picture.h"
#include "animate/staging.h"
#include "animate/uncompressed_avi.h"
#include "gif/gif_merger.h"

namespace animate {
namespace {

// What the merger said of frames is kept in a file, and its first line shown.
std::string FirstLine(const std::filesystem::path& path) {
  const std::string text = platform::InputFile(path).Read(0, 200);
  const std::size_t start = std::min(text.find_first_not_of("\r\n"), text.size());
  return text.substr(start, text.find_first_of("\r\n", start) - start);
}

// When frame `number` begins, in hundredths of a second.
int StartOf(const Plan& plan, std::size_t number) {
  return static_cast<int>(std::lround(100.0 * static_cast<double>(number) / plan.rate));
}

void MergeGifs(const Plan& plan, const Staging& staging, const std::filesystem::path& target) {
  const std::filesystem::path said = staging.Folder() / "said.txt";
  const platform::OwnedFile messages = platform::OpenForNewContent(said);
  const platform::OwnedFile output = platform::OpenForNewContent(target);
  if (!messages || !output) {
    throw Failure("the animation cannot be written");
  }
  const auto merger = std::make_unique<GifMerger>();
  merger->settings.messages = messages.get();
  for (std::size_t number = 0; number < plan.shown.size(); ++number) {
    StopIfInterrupted();
    const std::filesystem::path& path = plan.frames[plan.shown[number]].path;
    const platform::InputFile file(path);
    const std::string content = file.Read(0, static_cast<std::size_t>(file.Size()));
    merger->settings.delay = StartOf(plan, number + 1) - StartOf(plan, number);
    const GifFrameResult result = merger->AppendBytes(content, output.get(), number == 0);
    std::fflush(messages.get());
    const std::string message = FirstLine(said);
    if (result != GifFrameResult::kCopied || !message.empty()) {
      throw Failure("\"" + platform::TextOfPath(path.filename()) + "\" is damaged (" + message +
                    ")");
    }
  }
  std::fputc(';', output.get());
  if (std::fflush(output.get()) != 0 || std::ferror(output.get()) != 0) {
    throw Failure("the animation cannot be written, the disk may be full");
  }
}

Proven ProveGif(const Plan& plan, const std::filesystem::path& target) {
  const std::optional<GifContent> content = ReadGifContent(target);
  const int length = StartOf(plan, plan.shown.size());
  if (!content || content->images != plan.shown.size() || content->size != plan.size ||
      content->delay != static_cast<std::uint64_t>(length)) {
    throw Failure("the finished file is not whole");
  }
  return {content->images, static_cast<double>(length) / 100, content->size};
}

}  // namespace

Proven MakeWithoutConverter(const Plan& plan, const std::filesystem::path& target) {
  if (plan.hasSeveralSizes) {
    throw Failure("--without-converter: the frames have several sizes and stay as they are");
  }
  const Staging staging(plan);
  if (plan.format->extension == "gif" && plan.frameExtension == "gif") {
    MergeGifs(plan, staging, target);
    return ProveGif(plan, target);
  }
  if (plan.format->extension == "avi" && kHasUncompressedAvi) {
    return MakeUncompressedAvi(plan, staging, target);
  }
  throw Failure(kHasUncompressedAvi
                    ? "--without-converter: only GIF frames can become a GIF, and any frames an AVI"
                    : "--without-converter: only GIF frames can become a GIF");
}

}  // namespace animate
