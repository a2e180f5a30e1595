#include "converter/gif_encoding.h"

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "converter/behind.h"
#include "converter/encoding.h"
#include "converter/encoding_words.h"
#include "converter/planned_picture.h"
#include "converter/raw_pictures.h"
#include "film/failure.h"
#include "film/gif_clock.h"
#include "film/new_content.h"
#include "gif/film_colours.h"
#include "gif/gif_writer.h"
#include "gif/lossy_gif_writer.h"

namespace animate {
namespace {

// From which quality on pictures of few colours lose nothing.
constexpr int kExactFrom = 80;

using TakePicture = std::function<void(const RawPicture&)>;

// Has the converter give the planned pictures, by the filters `graph`, and make what `more` says.
void ReadPlanned(const Converter& converter, const Film& film, const Staging& staging,
                 const std::string& graph, const Words& more, const TakePicture& take) {
  // The next picture comes while one is being worked on.
  Behind behind;
  RawPictures pictures(film, [&](RawPicture picture) {
    behind.Do([&take, picture = std::move(picture)] { take(picture); });
  });
  const auto read = converter.ReadBytes(
      Joined(InputOf(converter, film, staging), Words{"-filter_complex", graph, "-map", "[film]"},
             RateOf(film), RawOutput(), more),
      staging.Folder(), [&](std::string_view piece) { pictures.Take(piece); });
  if (!read) {
    throw Failure(read.Reason());
  }
  behind.Finish();
  if (pictures.Count() != film.shown.size()) {
    throw Failure("the converter gave " + std::to_string(pictures.Count()) +
                  " pictures instead of " + std::to_string(film.shown.size()));
  }
}

std::uint32_t NumberOf(const ::Colour& colour) {
  return std::uint32_t{colour.red} | std::uint32_t{colour.green} << 8U |
         std::uint32_t{colour.blue} << 16U | std::uint32_t{colour.alpha} << 24U;
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
      entries_.emplace(NumberOf(colour), static_cast<std::uint8_t>(entries_.size()));
    }
  }

  const IndexedPicture& Of(const RawPicture& picture) {
    picture_.indices.clear();
    std::uint32_t last = NumberOf(picture.front());
    std::uint8_t entry = entries_.at(last);
    for (const ::Colour& colour : picture) {
      if (const std::uint32_t number = NumberOf(colour); number != last) {
        last = number;
        entry = entries_.at(number);
      }
      picture_.indices.push_back(entry);
    }
    return picture_;
  }

 private:
  IndexedPicture picture_;
  std::unordered_map<std::uint32_t, std::uint8_t> entries_;
};

}  // namespace

void EncodeGif(const Converter& converter, const Film& film, const Staging& staging,
               const std::filesystem::path& target,
               const std::function<void(std::size_t)>& progress) {
  const std::string way = "format=rgba";
  std::size_t done = 0;
  FilmColours colours;
  ReadPlanned(converter, film, staging, "[0:v]" + PlannedPicture(film) + "," + way + "[film]", {},
              [&](const RawPicture& picture) {
                colours.Add(picture);
                progress(++done);
              });
  done = 0;
  NewContent output(target);
  const GifSink sink = [&](std::string_view bytes) { output.Add(bytes); };
  const auto write = [&](const TakePicture& take) {
    ReadPlanned(converter, film, staging, FilmAndSmall(film, way),
                SmallOutput(film, kPlannedPictures), [&](const RawPicture& picture) {
                  take(picture);
                  progress(++done);
                });
  };
  NewContent whole(staging.Folder() / kWholePictures);
  if (colours.AreFew() && film.quality >= kExactFrom) {
    GifWriter writer(film.size.width, film.size.height, sink);
    Indexing indexing(film, colours);
    write([&](const RawPicture& picture) {
      whole.Add(FingerprintOf(picture));
      writer.Add(indexing.Of(picture), GifDelay(done, film.rate));
    });
    writer.Finish();
  } else {
    LossyGifWriter writer(film.size.width, film.size.height, colours, BitPriceOf(film.quality),
                          sink);
    write([&](const RawPicture& picture) { writer.Add(picture, GifDelay(done, film.rate)); });
    writer.Finish();
  }
  whole.Finish();
  output.Finish();
}

}  // namespace animate
