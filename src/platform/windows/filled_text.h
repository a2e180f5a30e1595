// Texts that the system fills in.
#pragma once

#include <windows.h>

#include <string>

namespace platform {

// Calls `fill` with a buffer and its size in characters, and again with a larger one when it
// returns that it needs more. Returns the text, as long as `fill` says that it is.
template <typename Character, typename Fill>
std::basic_string<Character> FilledText(const Fill& fill) {
  std::basic_string<Character> text(1024, Character());
  DWORD length = fill(text.data(), static_cast<DWORD>(text.size()));
  if (length >= text.size()) {
    text.resize(length + 1);
    length = fill(text.data(), static_cast<DWORD>(text.size()));
  }
  text.resize(length);
  return text;
}

}  // namespace platform
