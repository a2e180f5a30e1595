// Proving that a finished file is the film that was planned.
#pragma once

#include <filesystem>
#include <vector>

#include "converter/converter.h"
#include "converter/packets.h"
#include "converter/small_pictures.h"
#include "film/film.h"
#include "film/measurement.h"

namespace animate {

// Has the converter, in `folder`, read the file at `target` back and look at its pictures, which
// are compared with the planned ones that the encoding left in `folder`. Throws a Failure when
// there is any error in it, or its count of pictures, its length, their size or what they show is
// not that of the film.
Measurement Prove(const Converter& converter, const Film& film, const std::filesystem::path& target,
                  const std::filesystem::path& folder);

// What the converter was found to say of the file, without its pictures.
Measurement Measured(const Film& film, const Packets& packets);

// Which planned picture of a film, and which of those that are shown at `times` in the finished
// file, stand at the same time, in hundredths of a second; equal ones, one after the other, may be
// one in the file.
std::vector<Pair> PairsByTime(const Film& film, const std::vector<long long>& times);

}  // namespace animate
