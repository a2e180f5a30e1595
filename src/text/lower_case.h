// Texts without regard to case.
#pragma once

#include <string>
#include <string_view>

// An ASCII letter in lower case, any other character as it is.
constexpr char LowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

// `text` with its ASCII letters in lower case.
inline std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    c = LowerCase(c);
  }
  return lower;
}
