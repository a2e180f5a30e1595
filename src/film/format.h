// The formats of animations, and what each can hold.
#pragma once

#include <string>

#include "film/size.h"
#include "film/transparency.h"

namespace animate {

struct Format {
  // The extension of the file, in lower case.
  std::string extension;
  Transparency transparency = Transparency::kNone;
  // Whether both sides of the picture have to be even.
  bool needsEvenSides = false;
  // Whether it holds colours of more than 8 bits.
  bool isDeep = false;
  // Whether something is lost, the less the higher the quality.
  bool hasQuality = true;
  // The largest picture that most players show, in either direction; 0x0 for any.
  Size largestShown = {};
  // In frames a second.
  double lowestRate = 0;
  double highestRate = 1000;
  // The steps in which the container can hold a rate; 0 for any.
  double rateStep = 0;
};

// The format with an extension in any case; null when there is none.
const Format* FindFormat(const std::string& extension);

}  // namespace animate
