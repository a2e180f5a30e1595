// The whole run, from the options to the animation in its place.
#pragma once

#include "animate/options.h"

namespace animate {

// Does what the options ask for. Throws a Failure when the animation is not in place and proven at
// the end; everything is then as it was before.
void Run(const Options& options);

}  // namespace animate
