// What is going to be made, checked before any work is done.
#pragma once

#include <filesystem>
#include <vector>

#include "animate/frame_search.h"
#include "animate/options.h"
#include "animate/timing.h"
#include "film/film.h"

namespace animate {

// How the animation is made.
enum class Way { kConverter, kMergedGifs, kUncompressedAvi };

struct Plan {
  Film film;
  Way way = Way::kConverter;
  std::filesystem::path output;
  // Empty for none.
  std::filesystem::path contactSheet;
  bool replace = false;
  // Frames that were found bad when they were looked at; the film shows them still.
  std::vector<BadFrame> bad;
  // Frames whose files hold more pictures after the first, which is the one that is shown.
  std::vector<std::size_t> withMore;
};

// Makes the plan and looks at every frame. Throws a Failure when the animation cannot be made in
// the way that is asked for, when all frames are bad, when something is in the way at a place that
// is to be written to, and of wrong use when OUTPUT is missing and there is no name to make one of.
Plan MakePlan(const Options& options, const FoundFrames& found, const Timing& timing);

}  // namespace animate
