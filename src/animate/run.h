// One run of the program.
#pragma once

#include "animate/options.h"

namespace animate {

// Does what the options ask for. Throws a Failure when it cannot: then no frame was touched, and
// nothing was replaced or left behind, but for two cases in which the message says what was done: a
// contact sheet that cannot take its place after the animation has, and a rescue that was not able
// to rename everything.
void Run(const Options& options);

}  // namespace animate
