#include "converter/bad_frame.h"

#include <string>

#include "converter/frame_words.h"

namespace animate {
namespace {

// Whether `count` frames from the one with the number `first` on are decoded without an error. With
// one thread the converter does not look at frames after them.
bool AreGood(const Converter& converter, const Film& film, const Staging& staging,
             std::size_t first, std::size_t count) {
  const auto decoded = converter.MakePictures(
      Joined(Words{"-threads", "1"}, InputWords(film, staging.Pattern(), first),
             Words{"-frames:v", std::to_string(count), "-f", "null", "-"}),
      staging.Folder(), [](std::size_t) {});
  return decoded && *decoded == count;
}

}  // namespace

std::optional<std::size_t> FindBadFrame(const Converter& converter, const Film& film,
                                        const Staging& staging) {
  const auto number = FindBadNumber(film.shown.size(), [&](std::size_t first, std::size_t count) {
    return AreGood(converter, film, staging, first, count);
  });
  return number ? std::optional(film.shown[*number - 1]) : std::nullopt;
}

std::optional<std::size_t> FindBadNumber(
    std::size_t count, const std::function<bool(std::size_t, std::size_t)>& areGood) {
  if (areGood(1, count)) {
    return std::nullopt;
  }
  // The first bad frame is among these: halves, until one is left.
  std::size_t first = 1;
  std::size_t left = count;
  while (left > 1) {
    const std::size_t half = left / 2;
    if (areGood(first, half)) {
      first += half;
      left -= half;
    } else {
      left = half;
    }
  }
  // A converter that decodes nothing at all says nothing about the frames.
  const std::size_t other = first == 1 ? count : 1;
  if (areGood(first, 1) || !areGood(other, 1)) {
    return std::nullopt;
  }
  return first;
}

}  // namespace animate
