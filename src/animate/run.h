// One run of the program.
#pragma once

#include "animate/options.h"
#include "film/failure.h"

namespace animate {

// Does what the options ask for, and prints what it came to. Where it did not succeed no frame was
// touched, and nothing was replaced or left behind, but for two cases in which the message says
// what was done: a rescue that was not able to rename everything, and one of several animations
// that failed beside others. Throws a Failure of wrong use, of an interruption, and of a list that
// cannot be printed.
ExitStatus Run(const Options& options);

}  // namespace animate
