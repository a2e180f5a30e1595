// Draws animations by arbitrary bytes, has them written, and compares what the GIF shows with what
// was drawn.
#include <cstdint>
#include <cstdlib>
#include <string>

#include "tests/reference/literal_gif_player.h"
#include "tests/support/animation_of_numbers.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::size_t next = 0;
  const auto below = [&](int limit) { return next < size ? data[next++] % limit : 0; };
  const Animation animation = AnimationOfNumbers(below, 8, 8);
  const std::string file = WrittenExactly(animation);
  if (!file.empty() && LiteralGifPlayer::Play(file) != LiteralGifPlayer::ShownBy(animation)) {
    std::abort();
  }
  return 0;
}
