#include "converter/contact_sheet.h"

#include <algorithm>
#include <string>

#include "converter/frame_words.h"
#include "converter/planned_picture.h"
#include "film/failure.h"
#include "platform/paths.h"

namespace animate {
namespace {

constexpr std::size_t kMostOnSheet = 48;
constexpr std::size_t kMostColumns = 8;
// In pixels.
constexpr int kCellWidth = 240;

// The film of the frames on the sheet, of which each picture is a cell.
Film FilmOfSheet(const Film& film) {
  Film sheet = film;
  sheet.shown = FramesOnSheet(film);
  const int width = std::min(film.canvas.width, kCellWidth);
  const auto height = static_cast<long long>(film.canvas.height) * width / film.canvas.width;
  sheet.planned = {width, std::max(static_cast<int>(height), 1)};
  sheet.size = sheet.planned;
  if (film.freePixels == Film::FreePixels::kKept) {
    sheet.freePixels = Film::FreePixels::kLaid;
  }
  return sheet;
}

}  // namespace

std::vector<std::size_t> FramesOnSheet(const Film& film) {
  const std::size_t count = std::min(film.shown.size(), kMostOnSheet);
  std::vector<std::size_t> frames;
  for (std::size_t place = 0; place < count; ++place) {
    frames.push_back(film.shown[place * (film.shown.size() - 1) / (count - 1)]);
  }
  return frames;
}

void MakeContactSheet(const Converter& converter, const Film& film, const Staging& staging,
                      const std::filesystem::path& target) {
  const Film cells = FilmOfSheet(film);
  const std::size_t count = cells.shown.size();
  const std::size_t columns = std::min(count, kMostColumns);
  const std::size_t rows = (count + columns - 1) / columns;
  const std::string tile =
      ",tile=" + std::to_string(columns) + "x" + std::to_string(rows) + ":padding=4:margin=4";
  const auto made = converter.MakePictures(
      Joined(InputWords(film, staging.SheetPattern()),
             Words{"-vf", PlannedPicture(cells) + tile, "-frames:v", "1", "-pix_fmt", "rgb24",
                   "-c:v", "png", "-f", "image2pipe", platform::ArgumentOfPath(target)}),
      staging.Folder(), [](std::size_t) {});
  if (!made) {
    throw Failure(made.Reason());
  }
}

}  // namespace animate
