// What is going to be made, checked before any work is done.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "animate/format.h"
#include "animate/options.h"
#include "animate/sequence.h"
#include "platform/file_system.h"

namespace animate {

struct PlannedFrame {
  std::filesystem::path path;
  // As it was when the plan was made.
  platform::FileStatus status;
};

struct Plan {
  std::vector<PlannedFrame> frames;
  // The frames as they are shown, as indices into `frames`: one that is held stands several times.
  std::vector<std::size_t> shown;
  // The frames' extension, as the converter knows it.
  std::string frameExtension;
  std::filesystem::path output;
  // Empty for none.
  std::filesystem::path contactSheet;
  bool replace = false;
  const Format* format = nullptr;
  // Frames a second, as text and as number.
  std::string rateText;
  double rate = 0;
  // Of the first frame, and of the animation.
  Size frameSize;
  Size size;
  // Whether frames have to be brought to one size.
  bool hasSeveralSizes = false;
};

// The order in which frames are shown: each once, or, with `fillGaps`, held where numbers are
// missing. Throws a Failure when that would be more frames than can be meant.
std::vector<std::size_t> ShownFrames(const Findings& found, bool fillGaps);

// Makes the plan and looks at every frame. Throws a Failure when a frame is bad, when
// something is in the way at a place that is to be written to, and of wrong use when OUTPUT is
// missing and cannot be made of the folder's name.
Plan MakePlan(const Options& options, const std::filesystem::path& folder, const Findings& found);

}  // namespace animate
