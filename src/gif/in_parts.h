// Work on many things at once, on two cores.
#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <future>

// Pixels that are worth a part of their own: a thread takes as long to begin.
inline constexpr std::size_t kPixelsOfPart = 16384;

// How many parts so many pixels are worth, 1 at least.
constexpr std::size_t PartsOf(std::size_t pixels) {
  return pixels / kPixelsOfPart + 1;
}

// The first thing of a part, and the end of the one before, where `count` things make `parts`.
constexpr std::size_t BeginOf(std::size_t part, std::size_t parts, std::size_t count) {
  return count / parts * part + count % parts * part / parts;
}

// Calls `work` with a thread, 0 or 1, and a part, for each part below `parts` once. Each thread
// takes the next part when it is done with one: the cores have other work too.
template <typename Work>
void InParts(std::size_t parts, const Work& work) {
  std::atomic<std::size_t> next = 0;
  const auto take = [&](std::size_t thread) {
    for (std::size_t part = next++; part < parts; part = next++) {
      work(thread, part);
    }
  };
  std::future<void> other;
  if (parts > 1) {
    other = std::async(std::launch::async, take, std::size_t{1});
  }
  take(0);
  if (other.valid()) {
    other.get();
  }
}

// Calls `work` with each of so many rows of so many pixels.
template <typename Work>
void ForEachRow(std::size_t rows, std::size_t width, const Work& work) {
  const std::size_t parts = std::min(rows, PartsOf(rows * width));
  InParts(parts, [&](std::size_t, std::size_t part) {
    const std::size_t end = BeginOf(part + 1, parts, rows);
    for (std::size_t row = BeginOf(part, parts, rows); row < end; ++row) {
      work(row);
    }
  });
}
