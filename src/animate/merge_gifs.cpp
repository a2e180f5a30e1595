#include "animate/merge_gifs.h"

#include <cstdint>
#include <numeric>
#include <string>
#include <string_view>

#include "film/failure.h"
#include "film/gif_clock.h"
#include "film/interruption.h"
#include "film/new_content.h"
#include "film/quoted.h"
#include "gif/gif_blocks.h"
#include "gif/gif_copier.h"
#include "platform/input_file.h"

namespace animate {
namespace {

namespace fs = std::filesystem;

std::string ContentOf(const fs::path& frame) {
  const platform::InputFile file =
      OrFail(platform::InputFile::Open(frame), Quoted(frame.filename()) + " cannot be read");
  return file.Read(0, static_cast<std::size_t>(file.Size()));
}

const char* TextOf(GifRefusal refusal) {
  switch (refusal) {
    case GifRefusal::kNotOneImage:
      return "has several pictures";
    case GifRefusal::kOtherSize:
      return "has another size than the first frame";
    case GifRefusal::kNone:
      break;
  }
  return "";
}

// Tells the copier of every frame. Throws a Failure for one that it refuses.
void ExpectFrames(const Film& film, GifCopier& copier) {
  for (const Frame& frame : film.frames) {
    StopIfInterrupted();
    const GifRefusal refusal = copier.Expect(ReadGifBlocks(ContentOf(frame.path)));
    if (refusal != GifRefusal::kNone) {
      throw Failure("--without-converter: " + Quoted(frame.path.filename()) + " " +
                    TextOf(refusal));
    }
  }
}

void WriteFrames(const Film& film, const fs::path& target) {
  NewContent output(target);
  GifCopier copier([&](std::string_view bytes) { output.Add(bytes); });
  ExpectFrames(film, copier);
  for (std::size_t number = 0; number < film.shown.size(); ++number) {
    StopIfInterrupted();
    const std::string content = ContentOf(film.frames[film.shown[number]].path);
    copier.Append(content, ReadGifBlocks(content), GifDelay(number, film.rate));
  }
  copier.Finish();
  output.Finish();
}

Measurement Prove(const Film& film, const fs::path& target) {
  const platform::InputFile file =
      OrFail(platform::InputFile::Open(target), "the finished file cannot be read back");
  std::uint64_t read = 0;
  const GifBlocks blocks = ReadGifBlocks([&](std::size_t most) {
    std::string piece = file.Read(read, most);
    read += piece.size();
    return piece;
  });
  const int length =
      std::accumulate(blocks.images.begin(), blocks.images.end(), 0,
                      [](int sum, const GifImage& image) { return sum + image.control.delay; });
  if (blocks.fault != GifFault::kNone || blocks.images.size() != film.shown.size() ||
      Size{blocks.width, blocks.height} != film.size ||
      length != GifTime(film.shown.size(), film.rate)) {
    throw Failure("the finished file is not whole");
  }
  return {blocks.images.size(), static_cast<double>(length) / 100, film.size};
}

}  // namespace

Measurement MergeGifs(const Film& film, const fs::path& target) {
  WriteFrames(film, target);
  return Prove(film, target);
}

}  // namespace animate
