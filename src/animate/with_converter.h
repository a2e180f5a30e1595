// Animations that the converter makes.
#pragma once

#include <filesystem>

#include "animate/plan.h"
#include "film/measurement.h"

namespace animate {

// Makes the animation of the plan as the file `target` and the contact sheet, if the plan has one,
// as the file `sheet`, both there and empty, with the converter at `wanted` or, when that is empty,
// the one that is found, and proves the animation. Shows how far it is unless `isQuiet`. Throws a
// Failure when anything fails; where it is a frame's fault the message names the frame.
Measurement MakeWithConverter(const Plan& plan, const std::filesystem::path& target,
                              const std::filesystem::path& sheet,
                              const std::filesystem::path& wanted, bool isQuiet);

}  // namespace animate
