// Animations that the converter makes.
#pragma once

#include <filesystem>
#include <vector>

#include "animate/options.h"
#include "animate/plan.h"
#include "film/measurement.h"

namespace animate {

// The film that was made, of which the quality, the size and the levels may have been chosen on the
// way, and what it was found to be.
struct Made {
  Film film;
  Measurement measured;
};

// Makes the animation of the plan as the file `target` and the contact sheet, if the plan has one,
// as the file `sheet`, both there and empty, with the converter that the options name or that is
// found, and proves both. Shows how far it is unless the options forbid that. Throws a Failure when
// anything fails, and a BadFramesFailure where it is the fault of frames.
Made MakeWithConverter(const Plan& plan, const Options& options,
                       const std::filesystem::path& target, const std::filesystem::path& sheet);

// The frames of a film that the converter, found in the same way, cannot decode.
std::vector<BadFrame> FindUndecodable(const Film& film, const Options& options);

}  // namespace animate
