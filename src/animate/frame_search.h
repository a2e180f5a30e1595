// The frames that FRAMES, or a list, means.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "animate/options.h"
#include "sequence/findings.h"

namespace animate {

struct FoundFrames {
  // What the names of the frames are relative to.
  std::filesystem::path folder;
  Findings findings;
  // The name of an animation of these frames, without an extension: the folder's, and behind it
  // that of the frames unless the folder itself is meant; or the list's. Empty where there is none.
  std::string name;
  // Why they cannot be made into an animation; empty when they can.
  std::string refusal;
};

// Looks for the frames in the folder that the options name, for those of a file's sequence or part
// in its folder, for those that fit a pattern in theirs, or in the list. Throws a Failure when
// there is no such file or folder, when it cannot be read, and when it does not hold one sequence
// that can be meant.
FoundFrames FindFrames(const Options& options);

struct FoundFilms {
  std::vector<FoundFrames> films;
  // Images that are in none of them.
  std::vector<std::string> leftOut;
};

// The frames of every sequence and every part in the folder or among those that fit a pattern.
// Throws a Failure as FindFrames does, and of wrong use when a frame is named.
FoundFilms FindFilms(const Options& options);

}  // namespace animate
