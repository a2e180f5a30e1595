#include "converter/film_pictures.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "converter/behind.h"
#include "converter/encoding.h"
#include "converter/encoding_words.h"
#include "converter/planned_picture.h"
#include "film/failure.h"
#include "film/interruption.h"

namespace animate {
namespace {

// Beside so many bytes of pictures, and the writer, there is memory for two converters, and for
// one.
constexpr std::size_t kMostBytesOfSmall = 48U << 20U;
constexpr std::size_t kMostKeptBytes = 112U << 20U;

RawPixels PixelsOf(const Film& film) {
  return film.freePixels == Film::FreePixels::kKept ? RawPixels::kAll : RawPixels::kOpaque;
}

std::string WholePixels(const Film& film) {
  return std::string("format=") + NameOf(PixelsOf(film));
}

std::size_t BytesOf(const Film& film) {
  return film.shown.size() * BytesOf(PixelsOf(film)) * static_cast<std::size_t>(film.size.width) *
         static_cast<std::size_t>(film.size.height);
}

}  // namespace

FilmPictures::FilmPictures(const Converter& converter, const Film& film, const Staging& staging)
    : converter_(converter), film_(film), staging_(staging), bytes_(BytesOf(film)) {}

bool FilmPictures::AreSmall() const {
  return bytes_ <= kMostBytesOfSmall;
}

bool FilmPictures::AreKept() const {
  return bytes_ <= kMostKeptBytes;
}

void FilmPictures::First(const Take& take) {
  Read(FilmAndSmall(film_, WholePixels(film_)), SmallOutput(film_, kPlannedPictures),
       [&](RawPicture& picture) {
         take(picture);
         if (AreKept()) {
           kept_.push_back(Packed(picture, PixelsOf(film_)));
         }
       });
}

void FilmPictures::PrepareSecond() {
  if (!AreKept()) {
    second_ = std::async(std::launch::async, [this, taken = take_.get_future()]() mutable {
      Take take;
      ReadAgain([&](const RawPicture& picture) {
        if (!take) {
          take = taken.get();
        }
        take(picture);
      });
    });
  }
}

void FilmPictures::Second(const Take& take) {
  if (second_.valid()) {
    take_.set_value(take);
    second_.get();
  } else if (!AreKept()) {
    ReadAgain(take);
  }
  for (std::vector<std::uint8_t>& picture : kept_) {
    StopIfInterrupted();
    take(Unpacked(std::exchange(picture, {}), PixelsOf(film_)));
  }
}

void FilmPictures::ReadAgain(const std::function<void(RawPicture&)>& take) const {
  Read("[0:v]" + PlannedPicture(film_) + "," + WholePixels(film_) + "[film]", {}, take);
}

// Has the converter give the planned pictures, by the filters `graph`, and make what `more` says.
void FilmPictures::Read(const std::string& graph, const Words& more,
                        const std::function<void(RawPicture&)>& take) const {
  // The next picture comes while one is being worked on.
  RawPicture whole;
  Behind behind;
  RawPictures pictures(film_, PixelsOf(film_), [&](RawPicture& picture) {
    behind.Finish();
    std::swap(whole, picture);
    behind.Do([&] { take(whole); });
  });
  const auto read = converter_.ReadBytes(Joined(InputOf(converter_, film_, staging_),
                                                Words{"-filter_complex", graph, "-map", "[film]"},
                                                RateOf(film_), RawOutput(PixelsOf(film_)), more),
                                         staging_.Folder(),
                                         [&](std::string_view piece) { pictures.Take(piece); });
  if (!read) {
    throw Failure(read.Reason());
  }
  behind.Finish();
  if (pictures.Count() != film_.shown.size()) {
    throw Failure("the converter gave " + std::to_string(pictures.Count()) +
                  " pictures instead of " + std::to_string(film_.shown.size()));
  }
}

}  // namespace animate
