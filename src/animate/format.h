// The formats of animations, and the converter's parameters for each.
#pragma once

#include <string>
#include <vector>

namespace animate {

struct Format {
  // The extension of the file, in lower case.
  std::string extension;
  // The converter's names for the container, to write and to read it, and for the codec.
  std::string muxer;
  std::string demuxer;
  std::string codec;
  // What follows the codec.
  std::vector<std::string> parameters;
  // Whether both sides of the picture have to be even.
  bool needsEvenSides = false;
  // Whether the colours are gathered in a palette first.
  bool hasPalette = false;
  // In frames a second.
  double lowestRate = 0;
  double highestRate = 1000;
  // The steps in which the container can hold a rate; 0 for any.
  double rateStep = 0;
};

// The format with an extension in any case; null when there is none.
const Format* FindFormat(const std::string& extension);

}  // namespace animate
