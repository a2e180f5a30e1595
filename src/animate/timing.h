// How long each frame stands.
#pragma once

#include <cstddef>
#include <vector>

#include "animate/options.h"
#include "sequence/findings.h"

namespace animate {

struct Timing {
  // The frame of each tick of the rate, as indices into the sequence.
  std::vector<std::size_t> shown;
  // How many frames have no tick.
  std::size_t unseen = 0;
};

// Every frame for one tick and, with `fillGaps`, for one more for each missing number; or, with
// `speed`, until the next frame's time. Behind another part's the last one stands as long as the
// one before it did, and so does the last of all, which `hold` makes longer. Throws a Failure when
// that would be more ticks than can be meant, and when all frames are at one time.
Timing TimeFrames(const Findings& found, const Options& options);

}  // namespace animate
