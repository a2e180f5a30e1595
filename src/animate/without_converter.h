// Animations that need no converter.
#pragma once

#include <filesystem>

#include "animate/plan.h"
#include "animate/proof.h"

namespace animate {

// Makes the animation of the plan as the file `target`, which is there and empty, and proves it: a
// GIF of GIF frames, whose compressed data are copied, or, where the system can write one, an
// uncompressed AVI. Throws a Failure for any other plan, for frames of several sizes, and when a
// frame is damaged, which it names.
Proven MakeWithoutConverter(const Plan& plan, const std::filesystem::path& target);

}  // namespace animate
