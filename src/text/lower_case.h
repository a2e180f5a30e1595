// Texts without regard to case.
#pragma once

#include <algorithm>
#include <string>

// `text` with its ASCII letters in lower case.
inline std::string LowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return text;
}
