// Names in messages.
#pragma once

#include <filesystem>
#include <string>

#include "platform/paths.h"

namespace animate {

// A path as messages show it.
inline std::string Quoted(const std::filesystem::path& path) {
  return "\"" + platform::TextOfPath(path) + "\"";
}

}  // namespace animate
