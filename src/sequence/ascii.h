// Characters of names, of which only the ASCII ones have a meaning.
#pragma once

#include <string_view>

#include "text/lower_case.h"

namespace animate {

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

constexpr bool IsLetter(char c) {
  return LowerCase(c) >= 'a' && LowerCase(c) <= 'z';
}

// Takes one of `characters`, in lower case, in any case from the front of a text.
inline bool TakeCharacter(std::string_view& text, std::string_view characters) {
  const bool isThere =
      !text.empty() && characters.find(LowerCase(text[0])) != std::string_view::npos;
  text.remove_prefix(isThere ? 1 : 0);
  return isThere;
}

}  // namespace animate
