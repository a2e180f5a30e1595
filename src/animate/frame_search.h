// The frames that FRAMES means.
#pragma once

#include <filesystem>

#include "sequence/sequence.h"

namespace animate {

struct FoundFrames {
  std::filesystem::path folder;
  Findings findings;
};

// Looks for the frames in the folder `meant`, or, when that is a file, for those of its sequence in
// its folder. Throws a Failure when there is no such file or folder, when it cannot be listed, and
// when it does not hold one sequence that can be meant.
FoundFrames FindFrames(const std::filesystem::path& meant);

}  // namespace animate
