#include "converter/gif_encoding.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "converter/encoding.h"
#include "converter/film_pictures.h"
#include "converter/raw_pictures.h"
#include "film/failure.h"
#include "film/gif_clock.h"
#include "film/new_content.h"
#include "gif/film_colours.h"
#include "gif/gif_screen.h"
#include "gif/gif_writer.h"
#include "gif/lossy_gif_writer.h"
#include "platform/input_file.h"

namespace animate {
namespace {

// From which quality on pictures of few colours lose nothing.
constexpr int kExactFrom = 80;

constexpr std::uint64_t kAnySize = std::numeric_limits<std::uint64_t>::max();

namespace fs = std::filesystem;

GifSink SinkOf(NewContent& file) {
  return [&file](std::string_view bytes) { file.Add(bytes); };
}

// An animation that loses nothing, and what its pictures are told by. What it begins with is known
// last, so the rest is kept beside it until then.
class ExactGif {
 public:
  ExactGif(const Film& film, const fs::path& folder)
      : path_(folder / "exact.gif"),
        frames_(path_),
        writer_(film.size.width, film.size.height, SinkOf(frames_)) {}

  // `entries` are the pixels of `picture` in `table`.
  void Add(const RawPicture& picture, GifScreen entries, const std::vector<::Colour>& table,
           int delay) {
    writer_.Add(std::move(entries), table, delay);
    fingerprints_ += FingerprintOf(picture);
  }

  // Returns how many bytes it has.
  std::uint64_t Finish() {
    head_ = writer_.Finish();
    frames_.Finish();
    return head_.size() + frames_.Size();
  }

  const std::string& Fingerprints() const { return fingerprints_; }

  // Writes it, finished, as the file at `target`.
  void CopyTo(const fs::path& target) const {
    constexpr std::size_t kPiece = 1U << 20U;
    const platform::InputFile frames =
        OrFail(platform::InputFile::Open(path_), "the animation cannot be copied");
    NewContent copy(target);
    copy.Add(head_);
    std::uint64_t done = 0;
    for (std::string piece; !(piece = frames.Read(done, kPiece)).empty(); done += piece.size()) {
      copy.Add(piece);
    }
    copy.Finish();
    if (done != frames.Size()) {
      throw Failure("the animation cannot be copied");
    }
  }

 private:
  fs::path path_;
  NewContent frames_;
  GifWriter writer_;
  std::string fingerprints_;
  std::string head_;
};

// Writes the file at `target` with what the film's quality lets be lost. Returns its size.
std::uint64_t WriteLossily(const Film& film, const FilmColours& colours, FilmPictures& pictures,
                           const fs::path& target, const EncodingSteps& steps) {
  NewContent file(target);
  LossyGifWriter writer(film.size.width, film.size.height, colours, BitPriceOf(film.quality),
                        SinkOf(file));
  std::size_t done = 0;
  pictures.Second([&](const RawPicture& picture) {
    if (done + 1 == film.shown.size() && !pictures.AreSmall()) {
      // What gave the pictures, or kept them, has given its memory back.
      steps.begun(colours.AreFew());
    }
    writer.Add(picture, GifDelay(done, film.rate));
    steps.progress(++done);
  });
  writer.Finish();
  file.Finish();
  return file.Size();
}

}  // namespace

void EncodeGif(const Converter& converter, const Film& film, const Staging& staging,
               const fs::path& target, const EncodingSteps& steps) {
  FilmPictures pictures(converter, film, staging);
  const bool mayLoseFew = film.quality < kExactFrom;
  FilmColours colours(mayLoseFew);
  const auto mayLose = [&] { return !colours.AreFew() || mayLoseFew; };
  ExactGif exact(film, staging.Folder());
  // So many pictures come while a converter starts.
  constexpr std::size_t kWhileStarting = 8;
  const std::size_t leftToPrepare = std::min(film.shown.size() - 1, kWhileStarting);
  std::size_t done = 0;
  if (pictures.AreSmall()) {
    steps.begun(false);
  }
  pictures.First([&](const RawPicture& picture) {
    std::optional<GifScreen> entries = colours.Add(picture);
    if (done == 0 && entries && pictures.AreSmall()) {
      steps.begun(true);
    }
    if (entries) {
      exact.Add(picture, *std::move(entries), colours.Few(), GifDelay(done, film.rate));
    }
    steps.progress(++done);
    if (film.shown.size() - done == leftToPrepare && mayLose()) {
      pictures.PrepareSecond();
    }
  });
  std::optional<std::uint64_t> size;
  if (mayLose()) {
    size = WriteLossily(film, colours, pictures, target, steps);
  }
  // Empty where some pixels may be lost.
  NewContent whole(staging.Folder() / kWholePictures);
  if (colours.AreFew() && exact.Finish() <= size.value_or(kAnySize)) {
    exact.CopyTo(target);
    whole.Add(exact.Fingerprints());
  }
  whole.Finish();
}

}  // namespace animate
