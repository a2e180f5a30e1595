// Chooses the colour tables that the frames of an animated GIF are drawn with.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "gif/colour.h"
#include "gif/colour_counts.h"
#include "gif/colour_neighbours.h"
#include "gif/gif_table.h"
#include "gif/lossy_lzw_encoder.h"
#include "gif/nearest_colour.h"
#include "gif/trials.h"

// The bytes of a table with a place for a transparent entry behind its `colours`, 1 to 255, and its
// size as a power of two.
inline int LossyTableBits(const std::vector<Colour>& colours) {
  return GifTableBits(colours.size() + 1);
}
inline std::string LossyTableBytes(const std::vector<Colour>& colours) {
  return GifTableBytes(colours, LossyTableBits(colours));
}

// The same table for each of two threads.
using NearColours = std::array<NearestColour, 2>;

// Errors that the global table leaves make a table of a frame's own, of the colours that need it.
// What the screen shows already needs nothing, so frame by frame a picture that stands comes to
// show more colours than a table has.
class FrameTables {
 public:
  struct Choice {
    const ColourNeighbours* colours = nullptr;
    bool isOwn = false;
  };

  // `global` has 1 to 255 colours; with `isExact` they are all there are. `bitPrice` as LossyImage
  // has it.
  FrameTables(std::vector<Colour> global, bool isExact, float bitPrice);

  const std::vector<Colour>& Global() const { return global_.Table(); }

  // Fills the pixels from the first place up to the second, but for what the table makes of them.
  using Fill = std::function<void(std::size_t, std::size_t)>;

  // Chooses the table of a frame and says in `pixels` what its entries are for them. `fill` is
  // called on two threads, for all of them and for some more than once. The choice holds until the
  // next one.
  Choice Choose(std::span<LossyPixel> pixels, const Fill& fill);

 private:
  Choice Own(std::vector<Colour> table);
  std::optional<NearColours> OwnFor(std::span<const LossyPixel> pixels, const Fill& fill);
  std::vector<Colour> OwnOfSample();

  NearColours nearGlobal_;
  ColourNeighbours global_;
  bool isExact_;
  // How much of an error is worth nothing.
  int noDifference_;
  // What an entry of a table has to gain, and what a table has to.
  double entryPrice_;
  double tablePrice_;
  // How many pixels tell which table is the better one, where, and they.
  std::size_t samples_;
  std::vector<std::size_t> places_;
  std::vector<LossyPixel> sample_;
  ColourCounts counts_;
  std::optional<ColourNeighbours> own_;
  Trials ownTrials_;
};
