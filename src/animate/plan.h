// What is going to be made, checked before any work is done.
#pragma once

#include <cstddef>
#include <filesystem>
#include <vector>

#include "animate/frame_search.h"
#include "animate/options.h"
#include "film/film.h"
#include "sequence/findings.h"

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
};

// The order in which frames are shown, as indices into the sequence: each once, or, with
// `fillGaps`, held where numbers are missing. Throws a Failure when that would be more frames than
// can be meant.
std::vector<std::size_t> ShownFrames(const Findings& found, bool fillGaps);

// Makes the plan and looks at every frame. Throws a Failure when the animation cannot be made in
// the way that is asked for, when a frame is bad, when something is in the way at a place that is
// to be written to, and of wrong use when OUTPUT is missing and cannot be made of the folder's
// name.
Plan MakePlan(const Options& options, const FoundFrames& found);

}  // namespace animate
