// Work on many things at once, on two cores.
#pragma once

#include <cstddef>
#include <future>

// Calls `work` with 0 or 1 for the half, its first thing and the one after its last: with both
// halves of `count` things at once, of `pixels` pixels each, or with all of them as the first half
// where they are few.
template <typename Work>
void InHalves(std::size_t count, std::size_t pixels, const Work& work) {
  // A thread takes as long as this many pixels.
  constexpr std::size_t kFew = 20000;
  if (count * pixels < kFew) {
    work(std::size_t{0}, std::size_t{0}, count);
    return;
  }
  std::future<void> later =
      std::async(std::launch::async, [&] { work(std::size_t{1}, count / 2, count); });
  work(std::size_t{0}, std::size_t{0}, count / 2);
  later.get();
}
