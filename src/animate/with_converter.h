// Animations that the converter makes.
#pragma once

#include <filesystem>
#include <vector>

#include "animate/plan.h"
#include "film/measurement.h"

namespace animate {

// Makes the animation of the plan as the file `target` and the contact sheet, if the plan has one,
// as the file `sheet`, both there and empty, with the converter at `wanted` or, when that is empty,
// the one that is found, and proves the animation. Shows how far it is unless `isQuiet`. Throws a
// Failure when anything fails, and a BadFramesFailure where it is the fault of frames.
Measurement MakeWithConverter(const Plan& plan, const std::filesystem::path& target,
                              const std::filesystem::path& sheet,
                              const std::filesystem::path& wanted, bool isQuiet);

// The frames of a film that the converter, found in the same way, cannot decode.
std::vector<BadFrame> FindUndecodable(const Film& film, const std::filesystem::path& wanted);

}  // namespace animate
