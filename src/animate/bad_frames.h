// What is done about frames that cannot be shown.
#pragma once

#include <string>
#include <vector>

#include "animate/option_values.h"
#include "film/failure.h"
#include "film/film.h"

namespace animate {

// Frames were found bad in the making of the film. Its text names them: all when they are few, the
// first of them and their number when they are many.
class BadFramesFailure : public Failure {
 public:
  BadFramesFailure(const Film& film, std::vector<BadFrame> bad);

  // In the order of the film.
  const std::vector<BadFrame>& Frames() const { return bad_; }

 private:
  std::vector<BadFrame> bad_;
};

// "\"f5.png\" is empty", with a hint for the last frame of the film, which may be being written.
std::string TextOf(const Film& film, const BadFrame& bad);

// Takes bad frames out of what is shown: with kHold, or when frames stand by their times, the good
// frame before stays; else they are left out. Throws a Failure when there is no frame before a
// first one that is to be held, and when fewer than two good frames are left.
void TakeOut(const std::vector<BadFrame>& bad, BadFrames how, bool isByTime, Film& film);

}  // namespace animate
