// Proving that a finished file is the film that was planned.
#pragma once

#include <filesystem>

#include "converter/converter.h"
#include "converter/packets.h"
#include "film/film.h"
#include "film/measurement.h"

namespace animate {

// Has the converter, in `folder`, read the file at `target` back without decoding the pictures.
// Throws a Failure when there is any error in it, or its count of pictures, its length or their
// size is not that of the film.
Measurement Prove(const Converter& converter, const Film& film, const std::filesystem::path& target,
                  const std::filesystem::path& folder);

// The same, of what the converter was found to say.
Measurement Measured(const Film& film, const Packets& packets);

}  // namespace animate
