#include "converter/gif_encoding.h"

#include <string>
#include <string_view>

#include "converter/encoding.h"
#include "converter/encoding_words.h"
#include "converter/picture_cutter.h"
#include "converter/planned_picture.h"
#include "film/failure.h"
#include "film/gif_clock.h"
#include "film/new_content.h"
#include "gif/gif_writer.h"

namespace animate {
namespace {

constexpr std::size_t kTableBytes = 1024;

std::size_t PixelsOf(const Film& film) {
  return static_cast<std::size_t>(film.size.width) * static_cast<std::size_t>(film.size.height);
}

// Of raw pixels, and behind them a table of blue, green, red and alpha.
IndexedPicture PictureOf(const std::string& raw, const Film& film) {
  IndexedPicture picture;
  picture.width = film.size.width;
  picture.height = film.size.height;
  const std::size_t pixels = PixelsOf(film);
  picture.indices.assign(raw.begin(), raw.begin() + static_cast<std::ptrdiff_t>(pixels));
  const auto value = [&](std::size_t place) { return static_cast<std::uint8_t>(raw[place]); };
  for (std::size_t place = pixels; place < raw.size(); place += 4) {
    picture.palette.push_back({value(place + 2), value(place + 1), value(place), value(place + 3)});
  }
  return picture;
}

}  // namespace

void EncodeGif(const Converter& converter, const Film& film, const Staging& staging,
               const std::filesystem::path& target,
               const std::function<void(std::size_t)>& progress) {
  const Words input = InputOf(converter, film, staging);
  const std::string palette = "palette.png";
  converter.MakePictures(
      Joined(input, Words{"-lavfi", "[0:v]" + PlannedPicture(film) + ",palettegen", "-frames:v",
                          "1", palette}),
      staging.Folder(), progress);
  NewContent output(target);
  GifWriter writer(film.size.width, film.size.height,
                   [&](std::string_view bytes) { output.Add(bytes); });
  std::size_t done = 0;
  PictureCutter cutter(PixelsOf(film) + kTableBytes, [&](const std::string& raw) {
    writer.Add(PictureOf(raw, film), GifDelay(done, film.rate));
    progress(++done);
  });
  const auto read = converter.ReadBytes(
      Joined(input,
             Words{"-i", palette, "-filter_complex",
                   FilmAndSmall(film, "[1:v]paletteuse=dither=none"), "-map", "[film]"},
             RateOf(film),
             Words{"-pix_fmt", "pal8", "-c:v", "rawvideo", "-f", "rawvideo", "pipe:1"},
             SmallOutput(film, kPlannedPictures)),
      staging.Folder(), [&](std::string_view piece) { cutter.Take(piece); });
  if (!read) {
    throw Failure(read.Reason());
  }
  if (done != film.shown.size()) {
    throw Failure("the converter gave " + std::to_string(done) + " pictures instead of " +
                  std::to_string(film.shown.size()));
  }
  writer.Finish();
  output.Finish();
}

}  // namespace animate
