// Names in messages.
#pragma once

#include <filesystem>
#include <string>

#include "platform/paths.h"

namespace animate {

// A text of the user's, and a path, as messages show them.
inline std::string Quoted(const std::string& text) {
  return "\"" + text + "\"";
}
inline std::string Quoted(const std::filesystem::path& path) {
  return Quoted(platform::TextOfPath(path));
}

}  // namespace animate
