// The values that the colours of frames have.
#pragma once

#include "converter/converter.h"
#include "converter/staging.h"
#include "film/film.h"

namespace animate {

// Has the converter decode all frames that are shown, once. Returns the lowest and the highest
// value of any colour in them. Throws a Failure when the converter reports any error.
Levels MeasureLevels(const Converter& converter, const Film& film, const Staging& staging);

}  // namespace animate
