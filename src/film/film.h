// A film that is to be made: of which frames, in which order, how fast, how large, in which format.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "film/format.h"
#include "film/rate.h"
#include "film/size.h"
#include "platform/file_status.h"

namespace animate {

struct Frame {
  std::filesystem::path path;
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
  // Of the first frame.
  Size frameSize;
  // Whether frames have to be brought to one size.
  bool hasSeveralSizes = false;
  const Format* format = nullptr;
  Rate rate;
  Size size;
};

}  // namespace animate
