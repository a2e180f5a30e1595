// The frames that FRAMES means.
#pragma once

#include <filesystem>
#include <string>

#include "animate/options.h"
#include "sequence/findings.h"

namespace animate {

struct FoundFrames {
  std::filesystem::path folder;
  Findings findings;
  // The name of an animation of these frames, without an extension: the folder's, and behind it
  // that of the frames unless the folder itself is meant.
  std::string name;
};

// Looks for the frames in the folder that the options name, for those of a file's sequence or part
// in its folder, or for those that fit a pattern in theirs. Throws a Failure when there is no such
// file or folder, when it cannot be listed, and when it does not hold one sequence that can be
// meant.
FoundFrames FindFrames(const Options& options);

}  // namespace animate
