#include "converter/small_pictures.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "converter/planned_picture.h"
#include "film/failure.h"
#include "film/interruption.h"
#include "film/quoted.h"
#include "platform/input_file.h"

namespace animate {
namespace {

// Cells that are smaller would show what every coder loses.
constexpr int kSmallestCell = 16;
constexpr int kMostCells = 32;
// By how much a colour may differ, of 255. Coders lose details, and little of the mean of a cell
// before their quality is low; measured with noise and hard edges, each with half as much again.
int Allowed(int quality) {
  constexpr int kGood = 60;
  constexpr int kLow = 30;
  return quality >= kGood ? 28 : quality >= kLow ? 36 : 96;
}

int Cells(int side) {
  return std::clamp(side / kSmallestCell, 1, kMostCells);
}

// Of a small picture.
std::size_t Bytes(const Film& film) {
  return std::size_t{3} * static_cast<std::size_t>(Cells(film.size.width)) *
         static_cast<std::size_t>(Cells(film.size.height));
}

platform::InputFile Opened(const std::filesystem::path& path, std::uint64_t size) {
  platform::InputFile file =
      OrFail(platform::InputFile::Open(path), "the small pictures cannot be read");
  if (file.Size() != size) {
    throw Failure("the finished file does not show as many pictures as were planned");
  }
  return file;
}

}  // namespace

std::string SmallPicture(const Film& film) {
  return (film.freePixels == Film::FreePixels::kKept ? "format=rgba" + LaidOn(film.background)
                                                     : std::string("format=rgb24")) +
         ",scale=" + std::to_string(Cells(film.size.width)) + ":" +
         std::to_string(Cells(film.size.height)) + ":flags=area,format=rgb24";
}

Likeness ComparePictures(const Film& film, const std::filesystem::path& planned,
                         const std::filesystem::path& seen) {
  const std::size_t size = Bytes(film);
  const platform::InputFile plannedFile = Opened(planned, film.shown.size() * size);
  const platform::InputFile seenFile = Opened(seen, film.shown.size() * size);
  Likeness likeness;
  for (std::size_t number = 0; number < film.shown.size(); ++number) {
    StopIfInterrupted();
    const std::string wanted = plannedFile.Read(number * size, size);
    const std::string found = seenFile.Read(number * size, size);
    if (wanted.size() != size || found.size() != size) {
      throw Failure("the small pictures cannot be read");
    }
    for (std::size_t place = 0; place < size; ++place) {
      const int difference = std::abs(static_cast<unsigned char>(wanted[place]) -
                                      static_cast<unsigned char>(found[place]));
      if (difference > likeness.difference) {
        likeness = {difference, film.shown[number]};
      }
    }
  }
  if (likeness.difference > Allowed(film.quality)) {
    throw Failure("the finished file shows another picture in place of " +
                  Quoted(film.frames[likeness.frame].path.filename()) + " (a colour differs by " +
                  std::to_string(likeness.difference) + " of 255)");
  }
  return likeness;
}

}  // namespace animate
