// Characters of names, of which only the ASCII ones have a meaning.
#pragma once

#include "text/lower_case.h"

namespace animate {

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

constexpr bool IsLetter(char c) {
  return LowerCase(c) >= 'a' && LowerCase(c) <= 'z';
}

}  // namespace animate
