// Frames whose files were written anew while the film was made.
#pragma once

#include "converter/converter.h"
#include "converter/staging.h"
#include "film/film.h"

namespace animate {

// Throws a Failure that names a frame which does not show any more what was planned, although its
// file's size and times may say that it does. Costs little unless some file was touched since
// `staging` was made; then, and that may be by links that others make, the frames are looked at
// once more.
void CheckStillPlanned(const Converter& converter, const Film& film, const Staging& staging);

}  // namespace animate
