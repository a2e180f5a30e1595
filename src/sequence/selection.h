// Which of a folder's images are meant.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "sequence/findings.h"
#include "sequence/reading.h"

namespace animate {

struct SequenceOptions {
  // The name of a frame of the sequence, or of the part, that is meant.
  std::optional<std::filesystem::path> wanted = std::nullopt;
  // A pattern that the names of frames fit; those that do not are left out.
  std::optional<std::string> pattern = std::nullopt;
  Numbers numbers = Numbers::kAuto;
  // Parts, and sequences that are equally large, one after the other.
  bool join = false;
};

// Finds the frames that are meant among the names of a folder: the sequence or part that the wanted
// one belongs to, or else the largest sequence. Names that are no images are ignored. Throws a
// Failure when the names can be read in two ways, when parts or equal sequences leave a choice that
// `join` does not make, when the wanted one is no frame, and when there are fewer than two frames.
Findings FindSequence(const std::vector<std::filesystem::path>& names,
                      const SequenceOptions& options);

// One animation of a folder. With a refusal, which says why it cannot be made, it has frames but no
// gaps.
struct EachFilm {
  Findings findings;
  std::string refusal;
};

struct EachFilms {
  std::vector<EachFilm> films;
  // Images that are in none of them.
  std::vector<std::string> leftOut;
};

// Every sequence and every part among the names, the largest sequence first. Throws a Failure when
// there is none with two frames. `wanted` and `join` have no meaning.
EachFilms FindEach(const std::vector<std::filesystem::path>& names, const SequenceOptions& options);

}  // namespace animate
