// Writes an animated GIF of indexed pictures.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <future>
#include <memory>
#include <string>
#include <vector>

#include "gif/colour.h"
#include "gif/gif_format.h"
#include "gif/gif_frame.h"
#include "gif/gif_screen.h"

// Shows exactly the colours that it is given, for ever again, in few bytes: only what changes is
// drawn, equal pictures become one that stands longer, and what stays is transparent where that is
// shorter. It holds a few pictures, however many there are, and compresses two at a time; the bytes
// depend on the pictures alone. They may come before all their colours are known: what the file
// begins with is made last.
class GifWriter {
 public:
  // The size is in pixels, 1 to 65535 each. What `sink` throws goes to the caller of Add and
  // Finish, and the animation cannot be gone on with.
  GifWriter(int width, int height, GifSink sink);

  // Adds a picture of that size, to be shown for `delay` hundredths of a second, 2 or more:
  // programs show shorter ones longer. Its pixels are entries of `table`, of at most 256 different
  // ones, the transparent one first, which may have more at its end than it had before.
  void Add(GifScreen picture, const std::vector<Colour>& table, int delay);

  // Writes what is left of the animation, which has a picture. Nothing may be added after it.
  // Returns the bytes that come before all those that the sink has got.
  std::string Finish();

 private:
  void WritePending(const GifScreen& next);
  void WriteFrame(const GifScreen& next, int delay);
  void Collect(std::size_t most);

  int width_;
  int height_;
  GifSink sink_;
  std::shared_ptr<const std::vector<Colour>> table_;

  // What the screen shows when the pending picture is drawn, which waits for the next one: that
  // decides what becomes of it, and it may be the same.
  std::shared_ptr<const GifScreen> before_;
  std::shared_ptr<const GifScreen> pending_;
  std::int64_t delay_ = 0;

  std::size_t framesBegun_ = 0;
  // The best style of the last frame of which all were compared.
  std::size_t style_ = 0;
  // For each of the frames that are compressed at once; apart, since memory for both in one piece
  // is large enough to be asked of the system each time.
  std::deque<LzwEncoder> encoders_;
  // Those that are being compressed, in their order.
  std::deque<std::future<GifFrameBlocks>> frames_;
};
