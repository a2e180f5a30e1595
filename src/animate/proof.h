// Proving that a finished file is the animation that was planned.
#pragma once

#include <cstddef>
#include <filesystem>

#include "animate/converter.h"
#include "animate/plan.h"

namespace animate {

// What a file was found to hold.
struct Proven {
  std::size_t frames = 0;
  // In seconds.
  double length = 0;
  Size size;
};

// Reads the file at `target` back without decoding the pictures, with the converter in `folder`
// where the file is of a kind that only the converter knows. Throws a Failure when there is any
// error in it, or its count of pictures, its length or their size is not that of the plan.
Proven Prove(const Converter& converter, const Plan& plan, const std::filesystem::path& target,
             const std::filesystem::path& folder);

}  // namespace animate
