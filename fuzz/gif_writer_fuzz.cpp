// Draws animations by arbitrary bytes, has them written, and compares what the GIF shows with what
// was drawn.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "gif/gif_writer.h"
#include "tests/reference/literal_gif_player.h"
#include "tests/support/animation_of_numbers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::size_t next = 0;
  const auto below = [&](int limit) { return next < size ? data[next++] % limit : 0; };
  const auto pictures = AnimationOfNumbers(below, 8, 8);
  std::string file;
  GifShown expected;
  GifWriter writer(pictures[0].first.width, pictures[0].first.height,
                   [&](std::string_view bytes) { file += bytes; });
  for (const auto& [picture, delay] : pictures) {
    writer.Add(picture, delay);
    LiteralGifPlayer::Show(expected, GifPicture(picture).shown, delay);
  }
  writer.Finish();
  if (LiteralGifPlayer::Play(file) != expected) {
    std::abort();
  }
  return 0;
}
