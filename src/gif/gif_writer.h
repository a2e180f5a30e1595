// Writes an animated GIF of indexed pictures.
#pragma once

#include <cstdint>
#include <deque>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "gif/gif_frame.h"
#include "gif/indexed_picture.h"

class GifWriter {
 public:
  // What `sink` throws goes to the caller of Add and Finish, and the animation cannot be gone on
  // with.
  GifWriter(int width, int height, GifSink sink);

  // Adds a picture of the animation's size, to be shown for `delay` hundredths of a second, 2 or
  // more.
  void Add(const IndexedPicture& picture, int delay);

  // Writes what is left of the animation, which has a picture. Nothing may be added after it.
  void Finish();

 private:
  void Start(const GifPicture& picture);
  void WritePending(const GifPicture* next);
  void WriteFrame(const GifPicture& next, int delay);
  void Collect(std::size_t most);

  int width_;
  int height_;
  GifSink sink_;
  std::shared_ptr<const GifTable> global_;
  std::shared_ptr<const GifScreen> before_;
  std::shared_ptr<const GifPicture> pending_;
  std::int64_t delay_ = 0;
  bool first_ = true;
  std::deque<std::future<std::string>> frames_;
};
