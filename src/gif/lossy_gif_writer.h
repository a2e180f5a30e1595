// Writes an animated GIF of true-colour pictures, as like them as the bytes spent on it allow.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "gif/colour.h"
#include "gif/film_colours.h"
#include "gif/frame_tables.h"
#include "gif/gif_format.h"
#include "gif/gif_screen.h"
#include "gif/lossy_lzw_encoder.h"
#include "gif/lzw_encoder.h"
#include "gif/trials.h"
#include "gif/two_way_pixels.h"

// The error that is worth a bit of the file at a quality of 1 to 100, as LossyImage has it: 0 for
// 100, and more the lower the quality is. Pictures of every kind then lose much only where it
// spares much.
float BitPriceOf(int quality);

// Errors are those against the pictures themselves, whatever was shown before, so they do not add
// up. A pixel that is near enough to what it should be stays, one that will stand long is drawn
// better than one that will not, and a frame brings a table of its own where that is worth its
// bytes. It holds three pictures.
class LossyGifWriter {
 public:
  // The size is in pixels, 1 to 65535 each. `film` has seen every picture that will be added, and
  // outlives the writer. What `sink` throws goes to the caller of Add and Finish, and the animation
  // cannot be gone on with.
  LossyGifWriter(int width, int height, const FilmColours& film, float bitPrice, GifSink sink);

  // Adds a picture, the pixels row by row, alpha 255 or all 0, to be shown for `delay` hundredths
  // of a second, 2 or more.
  void Add(std::span<const Colour> picture, int delay);

  // Writes what is left of the animation, which has a picture. Nothing may be added after it.
  void Finish();

 private:
  // A frame that waits: the next picture may look the same.
  struct Frame {
    GifControl control;
    std::int64_t delay = 0;
    std::string image;
  };

  struct Rows {
    int top;
    int height;
  };

  void Start();
  void Draw(std::span<const Colour> next);
  Rows RowsToDraw(std::span<const Colour> next) const;
  void Weigh(std::span<const Colour> next, std::size_t begin, std::size_t end);
  std::string ImageOf(const GifArea& area, const FrameTables::Choice& choice);
  LossyData DataOf(const LossyImage& image, const GifArea& area);
  void Shorten(LossyData& data, const LossyImage& image, const GifArea& area);
  TwoWayPixels WaysOf(const std::vector<std::uint8_t>& entries, const LossyImage& image,
                      const GifArea& area) const;
  std::size_t PartsToEncode(std::size_t pixels) const;
  std::span<const LossyPixel> PixelsOf(const GifArea& area);
  void Show(const GifArea& area, const std::vector<std::uint8_t>& entries,
            const std::vector<Colour>& table);
  std::size_t PlaceOf(const GifArea& area) const;
  void WriteFrame();

  int width_;
  int height_;
  const FilmColours& film_;
  float bitPrice_;
  GifSink sink_;
  FrameTables tables_;

  // What the screen shows.
  std::vector<Colour> screen_;
  // The picture that waits for the next one, and the one before it.
  std::vector<Colour> pending_;
  std::vector<Colour> before_;
  int delay_ = 0;
  std::vector<LossyPixel> pixels_;
  std::vector<LossyPixel> part_;
  // What FilmColours says of each.
  std::vector<float> lives_;
  std::size_t picturesDrawn_ = 0;
  LzwEncoder exactEncoder_;
  Trials exactTrials_;
  // How many images were compressed in styles, and the best of the last of which all were compared.
  std::size_t imagesInStyles_ = 0;
  std::size_t style_ = 0;
  Frame frame_;
};
