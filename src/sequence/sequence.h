// Which of a folder's images are one sequence, and in which order.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace animate {

// A name cut into runs of digits and of other characters.
struct NumberedName {
  std::filesystem::path name;
  // What all names of a sequence share: the other characters, with a mark for each number. The case
  // of ASCII letters and the two spellings of jpg and tif make no difference.
  std::string pattern;
  // The digits of each number without leading zeros, so that longer ones are larger.
  std::vector<std::string> numbers;
};

// Images of one pattern in their order: by their numbers, then by name.
using Sequence = std::vector<NumberedName>;

// Numbers that are missing between two frames.
struct Gap {
  // The frame before, as an index into the sequence.
  std::size_t after = 0;
  std::size_t count = 0;
  // The first and last missing number.
  std::string first;
  std::string last;
};

struct Findings {
  Sequence sequence;
  std::vector<Gap> gaps;
  // The difference between neighbouring numbers; 0 when they have no regular one.
  std::size_t stride = 0;
  // Indices of frames whose numbers are those of the frame before.
  std::vector<std::size_t> doubles;
  // Other images of the folder, one text for each sequence or single image.
  std::vector<std::string> leftOut;
};

NumberedName CutName(const std::filesystem::path& name);

// Finds the sequence that is meant among the names of a folder: the one that `wanted` belongs to,
// or else the largest. Names that are no images are ignored. Throws a Failure when `wanted` has no
// number, when two sequences are equally large, and when fewer than two frames are found.
Findings FindSequence(const std::vector<std::filesystem::path>& names,
                      const std::optional<std::filesystem::path>& wanted);

}  // namespace animate
