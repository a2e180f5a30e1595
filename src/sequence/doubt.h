// What is said of names that can be read in two ways.
#pragma once

#include <string>

#include "sequence/name_group.h"
#include "sequence/reading.h"

namespace animate {

// Both readings as the first names of their orders, or as the films that they tell apart, and the
// options that decide. Empty when there is one reading.
std::string DoubtOf(const NameGroup& group, const Readings& readings);

}  // namespace animate
