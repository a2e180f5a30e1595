// A film that is to be made: of which frames, in which order, how fast, how large, in which format.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "film/colour.h"
#include "film/format.h"
#include "film/levels.h"
#include "film/rate.h"
#include "film/size.h"
#include "film/turn.h"
#include "platform/file_status.h"

namespace animate {

struct Frame {
  std::filesystem::path path;
  Turn turn = Turn::kNone;
  // The place in the file of the name by which programs know that the turn is told; 0 for none.
  std::uint64_t turnAt = 0;
  // As it was when it was looked at.
  platform::FileStatus status;
};

// A frame that cannot be shown.
struct BadFrame {
  // As an index into the film's frames.
  std::size_t frame = 0;
  // What is to be said behind its name: "is empty".
  std::string reason;
};

struct Film {
  std::vector<Frame> frames;
  // The frames as they are shown, as indices into `frames`: one that is held stands several times,
  // one that is left out does not.
  std::vector<std::size_t> shown;
  // What ImageType says of all frames.
  std::string frameType;
  // The picture into whose middle each frame is put, turned as it is seen: as wide as the widest
  // and as high as the highest.
  Size canvas;
  // Whether some frame is smaller than that.
  bool hasSeveralSizes = false;
  // Whether colours of some frame have more than 8 bits, and what they are spread by, if anything.
  bool isDeep = false;
  std::optional<Levels> levels;
  // What becomes of pixels that are not wholly there.
  enum class FreePixels { kNone, kKept, kLaid };
  FreePixels freePixels = FreePixels::kNone;
  // What is laid under such pixels and around smaller frames.
  Colour background;
  const Format* format = nullptr;
  // Whether a second encoder stands in for the usual one of the format.
  bool hasOtherEncoder = false;
  // From 1 to 100; larger is better.
  int quality = 80;
  // The bits a second that may be used up by a little more quality, where the format's own steps
  // are large.
  std::optional<double> bitRate;
  Rate rate;
  // Of the planned picture: the canvas, or what it is fitted into.
  Size planned;
  // That, with a column and a row more where the format needs even sides.
  Size size;
};

// Whether more than 8 bits of a colour stay: those of opaque frames, in a format that holds them.
// (Converters cannot read animated PNGs back that have both those and transparency.)
bool KeepsDepth(const Film& film);

// Plans pictures of a size.
void SetPlanned(Film& film, Size planned);

}  // namespace animate
