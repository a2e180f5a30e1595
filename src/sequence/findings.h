// The frames of one animation, in their order, and what is to be said of them.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "sequence/calendar.h"
#include "sequence/decimal.h"
#include "sequence/gaps.h"

namespace animate {

struct FoundFrame {
  std::filesystem::path name;
  // Its number of the counter; dates and times in seconds.
  Decimal number;
  // Equal for neighbours between which numbers can be missing.
  std::uint32_t stretch = 0;
  // Whether all its numbers are those of the frame before.
  bool isDouble = false;
};

struct Findings {
  // What the names have in common besides their numbers, as a name for the animation; no two
  // sequences and parts of a folder have the same.
  std::string name;
  // The extension of the frames in its one spelling.
  std::string extension;
  NumberKind kind = NumberKind::kWhole;
  std::vector<FoundFrame> frames;
  std::vector<Gap> gaps;
  // The difference between neighbouring numbers; nothing when they have no regular one.
  std::optional<Decimal> step;
  // Indices of frames whose numbers are those of the frame before.
  std::vector<std::size_t> doubles;
  // Other images of the folder, one text for each sequence, part or single image.
  std::vector<std::string> leftOut;
};

// Finds step, gaps and doubles of the frames; again after some were taken away.
void FindGaps(Findings& findings);

}  // namespace animate
