#include "converter/gif_encoding.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "converter/encoding.h"
#include "converter/film_pictures.h"
#include "converter/raw_pictures.h"
#include "film/failure.h"
#include "film/gif_clock.h"
#include "film/new_content.h"
#include "gif/film_colours.h"
#include "gif/gif_colours.h"
#include "gif/gif_writer.h"
#include "gif/lossy_gif_writer.h"
#include "platform/input_file.h"

namespace animate {
namespace {

// From which quality on pictures of few colours lose nothing.
constexpr int kExactFrom = 80;

namespace fs = std::filesystem;

GifSink SinkOf(NewContent& file) {
  return [&file](std::string_view bytes) { file.Add(bytes); };
}

// Ends a file. Returns how many bytes it has.
template <typename Writer>
std::uint64_t Finished(Writer& writer, NewContent& file) {
  writer.Finish();
  file.Finish();
  return file.Size();
}

// Pictures as entries of a table that has all their colours.
class Indexing {
 public:
  Indexing(const Film& film, const FilmColours& colours) {
    picture_.width = film.size.width;
    picture_.height = film.size.height;
    picture_.palette = colours.Table();
    // A transparent pixel.
    picture_.palette.push_back({0, 0, 0, 0});
    for (const ::Colour& colour : picture_.palette) {
      entries_.emplace(ToGifColour(colour), static_cast<std::uint8_t>(entries_.size()));
    }
  }

  const IndexedPicture& Of(const RawPicture& picture) {
    picture_.indices.clear();
    GifColour last = ToGifColour(picture.front());
    std::uint8_t entry = entries_.at(last);
    for (const ::Colour& colour : picture) {
      if (const GifColour number = ToGifColour(colour); number != last) {
        last = number;
        entry = entries_.at(number);
      }
      picture_.indices.push_back(entry);
    }
    return picture_;
  }

 private:
  IndexedPicture picture_;
  std::unordered_map<GifColour, std::uint8_t> entries_;
};

// A file that loses nothing.
class ExactGif {
 public:
  ExactGif(const Film& film, const FilmColours& colours, const fs::path& path)
      : file_(path),
        indexing_(film, colours),
        writer_(film.size.width, film.size.height, SinkOf(file_)) {}

  void Add(const RawPicture& picture, int delay) { writer_.Add(indexing_.Of(picture), delay); }

  std::uint64_t Finish() { return Finished(writer_, file_); }

 private:
  NewContent file_;
  Indexing indexing_;
  GifWriter writer_;
};

// One that loses what the film's quality allows.
class LossyGif {
 public:
  LossyGif(const Film& film, const FilmColours& colours, const fs::path& path)
      : file_(path),
        writer_(film.size.width, film.size.height, colours, BitPriceOf(film.quality),
                SinkOf(file_)) {}

  void Add(const RawPicture& picture, int delay) { writer_.Add(picture, delay); }

  std::uint64_t Finish() { return Finished(writer_, file_); }

 private:
  NewContent file_;
  LossyGifWriter writer_;
};

void Copy(const fs::path& from, const fs::path& to) {
  constexpr std::size_t kPiece = 1U << 20U;
  const platform::InputFile file =
      OrFail(platform::InputFile::Open(from), "the animation cannot be copied");
  NewContent copy(to);
  for (std::string piece; !(piece = file.Read(copy.Size(), kPiece)).empty();) {
    copy.Add(piece);
  }
  copy.Finish();
}

}  // namespace

void EncodeGif(const Converter& converter, const Film& film, const Staging& staging,
               const fs::path& target, const EncodingSteps& steps) {
  FilmPictures pictures(converter, film, staging);
  std::size_t done = 0;
  const bool mayLoseFew = film.quality < kExactFrom;
  FilmColours colours(mayLoseFew);
  pictures.First([&](const RawPicture& picture) {
    colours.Add(picture);
    steps.progress(++done);
  });
  done = 0;
  const bool mayLose = !colours.AreFew() || mayLoseFew;
  const fs::path besides = staging.Folder() / "exact.gif";
  NewContent whole(staging.Folder() / kWholePictures);
  std::optional<ExactGif> exact;
  std::optional<LossyGif> lossy;
  if (colours.AreFew()) {
    exact.emplace(film, colours, mayLose ? besides : target);
  }
  if (mayLose) {
    lossy.emplace(film, colours, target);
  }
  if (pictures.AreKept() && exact.has_value() != lossy.has_value()) {
    steps.writing(exact.has_value());
  }
  pictures.Second([&](const RawPicture& picture) {
    const int delay = GifDelay(done, film.rate);
    if (exact) {
      exact->Add(picture, delay);
      whole.Add(FingerprintOf(picture));
    }
    if (lossy) {
      lossy->Add(picture, delay);
    }
    steps.progress(++done);
  });
  const std::uint64_t exactSize = exact ? exact->Finish() : 0;
  const std::uint64_t lossySize = lossy ? lossy->Finish() : 0;
  whole.Finish();
  if (exact && lossy && exactSize <= lossySize) {
    Copy(besides, target);
  } else if (lossy) {
    // Emptied: some pixels may be lost.
    NewContent{staging.Folder() / kWholePictures};
  }
}

}  // namespace animate
