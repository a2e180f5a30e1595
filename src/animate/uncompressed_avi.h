// Uncompressed AVI files, on systems that can write them.
#pragma once

#include <filesystem>

#include "animate/plan.h"
#include "animate/proof.h"
#include "animate/staging.h"

namespace animate {

extern const bool kHasUncompressedAvi;

// Makes an uncompressed AVI of the frames as the file `target`, and proves it. Throws a Failure
// when a frame cannot be loaded, which it names, and when the file would be larger than the system
// can write or cannot be written.
Proven MakeUncompressedAvi(const Plan& plan, const Staging& staging,
                           const std::filesystem::path& target);

}  // namespace animate
