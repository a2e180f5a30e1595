// Finding the frames that the converter cannot decode.
#pragma once

#include <vector>

#include "converter/converter.h"
#include "converter/staging.h"
#include "film/film.h"

namespace animate {

// Has the converter decode all frames that are shown, once. Returns those that it cannot decode
// without an error, in their order; none when all can be decoded, and when none can, since then the
// fault is not a frame's. Throws a Failure as all that is done with the converter.
std::vector<BadFrame> FindBadFrames(const Converter& converter, const Film& film,
                                    const Staging& staging);

}  // namespace animate
