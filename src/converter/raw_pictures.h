// Whole pictures, as the converter gives them through a pipe.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "converter/words.h"
#include "film/film.h"
#include "gif/colour.h"

namespace animate {

// Row by row. Where the film keeps transparent pixels, one is wholly there or wholly not, and then
// all its values are 0.
using RawPicture = std::vector<::Colour>;

// What the converter gives of each pixel: red, green and blue, or these and alpha.
enum class RawPixels { kOpaque, kAll };

// What it is called there, and how many bytes a pixel has.
const char* NameOf(RawPixels pixels);
std::size_t BytesOf(RawPixels pixels);

// The words for an output of such pictures to the pipe.
Words RawOutput(RawPixels pixels);

// Cuts what arrives in pieces into the pictures of a film.
class RawPictures {
 public:
  // `picture` is called with each. It may take it: the next one comes in what it leaves, any.
  RawPictures(const Film& film, RawPixels pixels, std::function<void(RawPicture&)> picture);

  void Take(std::string_view piece);

  // How many have come whole.
  std::size_t Count() const { return count_; }

 private:
  std::function<void(RawPicture&)> picture_;
  bool keepsFree_;
  std::size_t bytesAPixel_;
  std::size_t pixels_;
  RawPicture current_;
  // The bytes of it that are there, at its end.
  std::size_t filled_ = 0;
  std::size_t count_ = 0;
};

// A picture in as few bytes as it came in, and what it was again.
std::vector<std::uint8_t> Packed(const RawPicture& picture, RawPixels pixels);
RawPicture Unpacked(const std::vector<std::uint8_t>& bytes, RawPixels pixels);

// What tells a picture from every other one.
std::string FingerprintOf(const RawPicture& picture);
inline constexpr std::size_t kFingerprintSize = 8;

}  // namespace animate
