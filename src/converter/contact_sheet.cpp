#include "converter/contact_sheet.h"

#include <algorithm>
#include <string>

#include "converter/frame_words.h"
#include "converter/planned_picture.h"
#include "converter/small_pictures.h"
#include "platform/paths.h"

namespace animate {
namespace {

constexpr std::size_t kMostOnSheet = 48;
constexpr std::size_t kMostColumns = 8;
// In pixels.
constexpr int kCellWidth = 240;
constexpr int kBorder = 4;

// The film of the frames on the sheet, of which each picture is a cell.
Film FilmOfSheet(const Film& film) {
  Film sheet = film;
  sheet.shown = FramesOnSheet(film);
  const int width = std::min(film.canvas.width, kCellWidth);
  const auto height = static_cast<long long>(film.canvas.height) * width / film.canvas.width;
  // As exact as the pictures of those are.
  sheet.format = FindFormat("apng");
  SetPlanned(sheet, {width, std::max(static_cast<int>(height), 1)});
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
  const std::size_t columns = std::min(cells.shown.size(), kMostColumns);
  const std::size_t rows = (cells.shown.size() + columns - 1) / columns;
  const std::string tile = "tile=" + std::to_string(columns) + "x" + std::to_string(rows) +
                           ":padding=" + std::to_string(kBorder) +
                           ":margin=" + std::to_string(kBorder);
  const std::string planned = "planned_sheet.rgb";
  converter.MakePictures(
      Joined(converter.Threads(), InputWords(film, staging.SheetPattern()),
             Words{"-filter_complex", "[0:v]" + PlannedPicture(cells) + ",split[a][b];[a]" + tile +
                                          "[sheet];[b]" + PlannedInSmall(cells) + "[small]"},
             Words{"-map", "[sheet]", "-frames:v", "1", "-pix_fmt", "rgb24", "-c:v", "png"},
             converter.Threads(), Words{"-f", "image2pipe", platform::ArgumentOfPath(target)},
             Words{"-map", "[small]", "-r", film.rate.text, "-c:v", "rawvideo", "-f", "rawvideo",
                   planned}),
      staging.Folder());
  // The finished sheet, looked at cell by cell.
  const std::string seen = "seen_sheet.rgb";
  const auto step = [](int side) { return std::to_string(side + kBorder); };
  const std::string cell = "crop=" + std::to_string(cells.size.width) + ":" +
                           std::to_string(cells.size.height) + ":" + std::to_string(kBorder) +
                           "+mod(n\\," + std::to_string(columns) + ")*" + step(cells.size.width) +
                           ":" + std::to_string(kBorder) + "+floor(n/" + std::to_string(columns) +
                           ")*" + step(cells.size.height);
  converter.MakePictures(
      Joined(converter.Threads(),
             Words{"-f", "png_pipe", "-i", platform::ArgumentOfPath(target), "-vf",
                   "loop=" + std::to_string(cells.shown.size() - 1) + ":1:0," + cell + "," +
                       PlannedInSmall(cells)},
             Words{"-vsync", "0", "-c:v", "rawvideo", "-f", "rawvideo", seen}),
      staging.Folder());
  ComparePictures(cells, staging.Folder() / planned, staging.Folder() / seen,
                  InOrder(cells.shown.size()), "contact sheet");
}

}  // namespace animate
