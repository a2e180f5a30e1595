// What is known of one animation.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "animate/frame_search.h"
#include "animate/plan.h"
#include "film/measurement.h"

namespace animate {

// It grows while the work goes on; what is empty is not known, or does not come about.
struct Account {
  std::optional<FoundFrames> found;
  // Of a list of the frames.
  std::optional<std::vector<std::filesystem::path>> files;
  std::optional<Plan> plan;
  // Of the animation in its place, whose size is in bytes.
  std::optional<Measurement> measured;
  std::uint64_t bytes = 0;
};

}  // namespace animate
