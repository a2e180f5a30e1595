// What is said of a frame that is no more the one that was looked at.
#pragma once

#include "film/failure.h"
#include "film/film.h"
#include "film/quoted.h"

namespace animate {

inline Failure ChangedFrame(const Frame& frame) {
  return Failure(Quoted(frame.path.filename()) + " was changed while the animation was made");
}

}  // namespace animate
