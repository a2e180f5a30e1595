// The picture that is planned for each frame.
#pragma once

#include <string>

#include "film/film.h"

namespace animate {

// The converter's filters that make the planned pictures of the frames in the order in which they
// are shown: turned, in the middle of the canvas, laid on the background or with their transparency
// kept, fitted into the size that is asked for, with a last column and row once more where the
// format needs even sides. In red, green and blue.
std::string PlannedPicture(const Film& film);

// The filter that brings pictures to a size; `how` is the converter's name of the algorithm.
std::string ScaleFilter(Size size, const std::string& how);

// The filters that lay transparent pixels on a colour; what comes has to be rgba.
std::string LaidOn(const Colour& colour);

}  // namespace animate
